#include "clouddoc/ui/clouddoctoolbar.h"

#include "clouddoc/ui/clouddocactions.h"
#include "clouddoc/ui/cloudsortmenu.h"
#include "clouddoc/ui/transferbutton.h"
#include "klitestyle.h"
#include "widgets/svgicon.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr int RoomForText = 560;    // of the upload button
constexpr int RoomForHistory = 440; // the buttons that are used least

QString lineIcon(const char *name)
{
    return QStringLiteral(":/icons_svg/%1.svg").arg(QLatin1String(name));
}

} // namespace

CloudDocToolBar::CloudDocToolBar(CloudDocActions *actions, QWidget *parent)
    : QWidget(parent),
      m_crumbs(new BreadcrumbBar(this)),
      m_upload(new QPushButton(this)),
      m_uploadIcon(new IconButton(lineIcon("upload"), {}, this)),
      m_sort(new IconButton(lineIcon("sort"), {}, this)),
      m_transfers(new TransferButton(this)),
      m_uploadMenu(new QMenu(this)),
      m_sortMenu(new CloudSortMenu(this))
{
    m_uploadMenu->addAction(actions->uploadFiles);
    m_uploadMenu->addAction(actions->uploadFolder);
    m_upload->setIcon(zel::tintedIcon(lineIcon("upload")));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({14, 14, 16, 8}));
    layout->setSpacing(KLiteStyle::dpiScaled(2));
    QVector<QWidget *> order{buttonFor(actions->back), m_forward = buttonFor(actions->forward),
        m_up = buttonFor(actions->up), m_crumbs, m_upload, m_uploadIcon, buttonFor(actions->newFolder),
        m_sort, m_transfers};
    for (QWidget *widget : std::as_const(order))
        layout->addWidget(widget, widget == m_crumbs ? 1 : 0);
    layout->insertSpacing(order.indexOf(m_uploadIcon) + 1, KLiteStyle::dpiScaled(4));
    order.removeOne(m_crumbs);
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
    m_crumbs->setTabPredecessor(m_up);
    setFonts();

    connect(m_upload, &QAbstractButton::clicked, this, [this] { popUpUploadMenu(m_upload); });
    connect(m_uploadIcon, &QAbstractButton::clicked, this, [this] { popUpUploadMenu(m_uploadIcon); });
    connect(m_sort, &QAbstractButton::clicked, this, [this] {
        const QPoint below = m_sort->mapToGlobal(QPoint(m_sort->width(), m_sort->height()));
        m_sortMenu->popup(below - QPoint(m_sortMenu->sizeHint().width(), 0));
    });
    connect(m_sortMenu, &CloudSortMenu::sortChosen, this, &CloudDocToolBar::sortChosen);
    const auto followUpload = [this, actions] {
        m_upload->setEnabled(actions->uploadFiles->isEnabled());
        m_uploadIcon->setEnabled(actions->uploadFiles->isEnabled());
    };
    connect(actions->uploadFiles, &QAction::changed, this, followUpload);
    followUpload();
    retranslate();
    adapt();
}

IconButton *CloudDocToolBar::buttonFor(QAction *action)
{
    auto *button = new IconButton(action->property("zelIcon").toString(), {}, this);
    const auto follow = [button, action] {
        button->setEnabled(action->isEnabled());
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        button->setName(action->text());
        button->setToolTip(
            keys.isEmpty() ? action->text() : tr("%1 (%2)", "action and its keys").arg(action->text(), keys));
    };
    connect(action, &QAction::changed, button, follow);
    connect(button, &QAbstractButton::clicked, action, &QAction::trigger);
    follow();
    return button;
}

void CloudDocToolBar::popUpUploadMenu(QWidget *below)
{
    m_uploadMenu->popup(below->mapToGlobal(QPoint(0, below->height() + KLiteStyle::dpiScaled(2))));
}

void CloudDocToolBar::setSort(const CloudSort &sort)
{
    m_sortMenu->setSort(sort);
}

void CloudDocToolBar::setSortShown(bool shown)
{
    m_sort->setVisible(shown);
}

// Else the layout would ask for the room of what is shown now, and never let it become less.
QSize CloudDocToolBar::minimumSizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    const int buttons = 5 * (m_sort->sizeHint().width() + layout()->spacing());
    return {margins.left() + buttons + m_crumbs->minimumSizeHint().width() + margins.right(),
        QWidget::minimumSizeHint().height()};
}

void CloudDocToolBar::adapt()
{
    const bool text = width() >= KLiteStyle::dpiScaled(RoomForText);
    const bool history = width() >= KLiteStyle::dpiScaled(RoomForHistory);
    m_upload->setVisible(text);
    m_uploadIcon->setVisible(!text);
    m_forward->setVisible(history);
    m_up->setVisible(history);
}

void CloudDocToolBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    adapt();
}

void CloudDocToolBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::FontChange)
        setFonts();
}

void CloudDocToolBar::setFonts()
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.15);
    m_crumbs->setFont(large);
}

void CloudDocToolBar::retranslate()
{
    m_upload->setText(tr("Upload"));
    m_upload->setAccessibleDescription(tr("Opens a menu"));
    m_uploadIcon->setName(tr("Upload"));
    m_sort->setName(tr("Order"));
}
