#include "settings/ui/kzelboxcloudsettingsdlg.h"

#include "kcloudsvrproxy.h"
#include "klitestyle.h"
#include "klook.h"
#include "krt/krt.h"
#include "kskin.h"
#include "settings/ui/aboutpage.h"
#include "settings/ui/cloudsettingspage.h"
#include "settings/ui/comingpage.h"
#include "settings/ui/generalpage.h"
#include "settings/ui/privacypage.h"
#include "settings/ui/recentsettingspage.h"
#include "settings/ui/shortcutspage.h"
#include "widgets/modalguard.h"
#include "widgets/sidelist.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QStackedWidget>

namespace look = zel::look;

namespace {

enum Page { General, Recent, Radar, Sync, Cloud, Privacy, Shortcuts, About, PageCount };

/// Names of pages, and of controls with the page that has them.
struct Name
{
    const char *name;
    Page page;
};
constexpr Name PageNames[PageCount] = {{"general", General}, {"recent", Recent}, {"radar", Radar},
    {"sync", Sync}, {"cloud", Cloud}, {"privacy", Privacy}, {"shortcuts", Shortcuts}, {"about", About}};
constexpr Name ControlNames[] = {{"autostart", General}, {"close", General}, {"theme", General},
    {"language", General}, {"account", Cloud}, {"telemetry", Privacy}};

int s_lastPage = General; // the settings come back where the user left them

QString programPath()
{
    const QString folder = krt::dirs::programs();
    return folder.isEmpty() ? QString() : folder + QStringLiteral("/zelbox");
}

} // namespace

CloudSettingsWidget::CloudSettingsWidget(KSkin *skin, KCloudSvrProxy *cloud, QWidget *parent)
    : QWidget(parent),
      m_skin(skin),
      m_cloud(cloud),
      m_list(new SideList(tr("Pages"), this)),
      m_stack(new QStackedWidget(this)),
      m_pages(PageCount)
{
    const auto icon = [](const char *name) {
        return QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name));
    };
    m_list->addPage(icon("settings"), tr("General"));
    m_list->addPage(icon("nav_recent"), tr("Recent"));
    m_list->addPage(icon("nav_radar"), tr("File radar"));
    m_list->addPage(icon("nav_sync"), tr("Desktop sync"));
    m_list->addPage(icon("nav_cloud"), tr("Cloud"));
    m_list->addPage(icon("privacy"), tr("Privacy"));
    m_list->addPage(icon("keyboard"), tr("Shortcuts"));
    m_list->addPage(icon("info"), tr("About"));

    auto *side = new QWidget(this);
    side->setBackgroundRole(QPalette::AlternateBase);
    side->setAutoFillBackground(true);
    auto *sideLayout = new QVBoxLayout(side);
    const int inset = KLiteStyle::dpiScaled(look::SpaceM);
    sideLayout->setContentsMargins(inset, inset, inset, inset);
    sideLayout->addWidget(m_list);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(side);
    layout->addWidget(m_stack, 1);
    connect(m_list, &SideList::pageChosen, this, &CloudSettingsWidget::choose);
    m_list->choose(s_lastPage);
    choose(s_lastPage);
    m_list->setFocus();
}

// Long titles must not take the room of what they stand for.
void CloudSettingsWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_list->setMaximumWidth(qMax(KLiteStyle::dpiScaled(96), width() * 3 / 8));
}

void CloudSettingsWidget::choose(int row)
{
    s_lastPage = row;
    SettingsPage *shown = page(row);
    if (m_stack->currentWidget() == shown)
        return;
    m_stack->setCurrentWidget(shown);
    shown->refresh();
}

SettingsPage *CloudSettingsWidget::page(int row)
{
    SettingsPage *&made = m_pages[row];
    if (!made) {
        made = makePage(row);
        m_stack->addWidget(made);
    }
    return made;
}

SettingsPage *CloudSettingsWidget::makePage(int row)
{
    switch (Page(row)) {
    case General: {
        auto *general =
            new GeneralPage(m_skin, zel::Autostart(zel::AutostartPlaces::fromEnvironment(programPath())));
        connect(general, &GeneralPage::languageChosen, this, &CloudSettingsWidget::languageChosen);
        return general;
    }
    case Recent:
        return new RecentSettingsPage;
    case Radar:
        return new ComingPage(tr("File radar"), QStringLiteral(":/icons_svg/empty_radar.svg"),
            tr("Nothing to set yet"),
            tr("What the file radar watches will be chosen here. It comes with a later version."));
    case Sync:
        return new ComingPage(tr("Desktop sync"), QStringLiteral(":/icons_svg/empty_sync.svg"),
            tr("Nothing to set yet"),
            tr("Which folders are kept in step will be chosen here. Desktop sync comes with a later "
               "version."));
    case Cloud:
        return new CloudSettingsPage(m_cloud);
    case Privacy:
        return new PrivacyPage(m_cloud);
    case Shortcuts:
        return new ShortcutsPage;
    case About:
    case PageCount:
        break;
    }
    return new AboutPage;
}

void CloudSettingsWidget::setParameter(const QString &parameter)
{
    for (const Name &each : PageNames) {
        if (parameter == QLatin1String(each.name))
            return m_list->choose(each.page);
    }
    for (const Name &each : ControlNames) {
        if (parameter != QLatin1String(each.name))
            continue;
        m_list->choose(each.page);
        if (QWidget *control = page(each.page)->control(parameter))
            page(each.page)->lead(control);
    }
}

QString CloudSettingsWidget::currentPage() const
{
    return QLatin1String(PageNames[m_list->currentRow()].name);
}

void CloudSettingsWidget::refresh()
{
    page(m_list->currentRow())->refresh();
}

KZelBoxCloudSettingsDlg::KZelBoxCloudSettingsDlg(KSkin *skin, KCloudSvrProxy *cloud, QWidget *parent)
    : QDialog(parent), m_settings(new CloudSettingsWidget(skin, cloud, this))
{
    setWindowTitle(tr("Settings"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/zelbox.ico")));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    new ModalGuard(this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_settings);
    setMinimumSize(KLiteStyle::dpiScaledSize({420, 300}));
    const QSize room = screen()->availableSize();
    resize(KLiteStyle::dpiScaledSize({800, 580}).boundedTo(room));
    connect(m_settings, &CloudSettingsWidget::languageChosen, this, &KZelBoxCloudSettingsDlg::languageChosen);
}

bool KZelBoxCloudSettingsDlg::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        m_settings->refresh();
    return QDialog::event(event);
}
