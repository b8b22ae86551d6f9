#include "recentfile/ui/recentfiletitlewidget.h"

#include "base/sizetext.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/recentfiletitlemenu.h"
#include "recentfile/ui/recentsortmenu.h"
#include "widgets/iconbutton.h"

#include <QLabel>
#include <QLocale>

namespace telemetry = zel::recent::telemetry;

ZelBoxRecentFileTitleWidget::ZelBoxRecentFileTitleWidget(QWidget *parent)
    : ListHeader(tr("Recent"), parent),
      m_unreadLabel(new QLabel(this)),
      m_sortMenu(new RecentSortMenu(this)),
      m_moreMenu(new KRecentFileTitleMenu(this))
{
    using Self = ZelBoxRecentFileTitleWidget;
    m_unreadLabel->setObjectName(QStringLiteral("text-unread"));
    m_unreadLabel->setToolTip(tr("Mark all as seen"));
    m_unreadLabel->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_unreadLabel->hide();
    addText(m_unreadLabel);
    m_sortButton = addMenuButton(QStringLiteral(":/icons_svg/sort.svg"), tr("Sort"), m_sortMenu);
    addMenuButton(QStringLiteral(":/icons_svg/more.svg"), tr("More"), m_moreMenu);
    connect(m_unreadLabel, &QLabel::linkActivated, this, &Self::onClearMsgLabelClicked);
    connect(m_sortMenu, &RecentSortMenu::sortChosen, this, &Self::sortChosen);
    connect(m_moreMenu, &KRecentFileTitleMenu::clearUnreadMsg, this, &Self::clearUnreadMsg);
    connect(m_moreMenu, &KRecentFileTitleMenu::remindersChanged, this, &Self::remindersChanged);
}

void ZelBoxRecentFileTitleWidget::addCommands(const QList<QAction *> &commands)
{
    m_moreMenu->addCommands(commands);
}

void ZelBoxRecentFileTitleWidget::setListTools(bool shown)
{
    m_sortButton->setVisible(shown);
}

void ZelBoxRecentFileTitleWidget::setCounts(int shown, int selected, qint64 selectedBytes)
{
    setCount(shown, tr("Number of files: %1"));
    if (shown < 0 || selected <= 0)
        return;
    const QLocale locale;
    QString text = tr("%1 of %2 selected").arg(locale.toString(selected), locale.toString(shown));
    if (selectedBytes > 0)
        text += QStringLiteral(" · ") + zel::sizeText(selectedBytes);
    setCountText(text);
}

void ZelBoxRecentFileTitleWidget::setUnreadCount(int count)
{
    m_unread = count;
    m_moreMenu->setUnreadCount(count);
    m_unreadLabel->setVisible(count > 0);
    if (count <= 0)
        return;
    const QString text = tr("%Ln unread", nullptr, count);
    m_unreadLabel->setText(QStringLiteral("<a href='#'>%1</a>").arg(text.toHtmlEscaped()));
    m_unreadLabel->setAccessibleName(text);
}

void ZelBoxRecentFileTitleWidget::setSort(const zel::ListSort &sort)
{
    m_sortMenu->setSort(sort);
}

void ZelBoxRecentFileTitleWidget::onLoginStatusChanged(bool bLogin)
{
    m_moreMenu->onLoginStatusChanged(bLogin);
    if (!bLogin)
        Q_EMIT needOpenRoaming(false);
}

void ZelBoxRecentFileTitleWidget::onRoamingGuideLinkClicked()
{
    telemetry::post(telemetry::Event::MultiDeviceClick);
    Q_EMIT roamingGuideWanted();
}

void ZelBoxRecentFileTitleWidget::onClearMsgLabelClicked()
{
    telemetry::post(telemetry::Event::ClearClick);
    Q_EMIT clearUnreadMsg();
}

void ZelBoxRecentFileTitleWidget::onNotifyNeedOpenRoaming()
{
    Q_EMIT needOpenRoaming(true);
}

void ZelBoxRecentFileTitleWidget::onChangeIgnoreStatus()
{
    m_moreMenu->onNotifyCheckAction();
}

void ZelBoxRecentFileTitleWidget::onUpdateIgnoreBtnStatue()
{
    m_moreMenu->setUnreadCount(m_unread);
}
