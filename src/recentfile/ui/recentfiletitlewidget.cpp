#include "recentfile/ui/recentfiletitlewidget.h"

#include "klitestyle.h"
#include "klook.h"
#include "recentfile/recenttelemetry.h"
#include "recentfile/ui/recentfiletitlemenu.h"
#include "recentfile/ui/recentsortmenu.h"
#include "widgets/iconbutton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

namespace telemetry = zel::recent::telemetry;

ZelBoxRecentFileTitleWidget::ZelBoxRecentFileTitleWidget(QWidget *parent)
    : QWidget(parent),
      m_title(new QLabel(this)),
      m_countLabel(new QLabel(this)),
      m_unreadLabel(new QLabel(this)),
      m_sortMenu(new RecentSortMenu(this)),
      m_moreMenu(new KRecentFileTitleMenu(this))
{
    m_title->setObjectName(QStringLiteral("text-title"));
    m_title->setFont(zel::look::font(zel::look::Type::Title, font()));
    m_countLabel->setObjectName(QStringLiteral("text-count"));
    m_countLabel->setForegroundRole(QPalette::PlaceholderText);
    m_unreadLabel->setObjectName(QStringLiteral("text-unread"));
    m_unreadLabel->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    m_unreadLabel->hide();
    connect(
        m_unreadLabel, &QLabel::linkActivated, this, &ZelBoxRecentFileTitleWidget::onClearMsgLabelClicked);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({24, 18, 16, 6}));
    layout->setSpacing(KLiteStyle::dpiScaled(10));
    layout->addWidget(m_title, 0, Qt::AlignBaseline);
    layout->addWidget(m_countLabel, 0, Qt::AlignBaseline);
    layout->addWidget(m_unreadLabel, 0, Qt::AlignBaseline);
    layout->addStretch(1);
    makeButtons();
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(KLiteStyle::dpiScaled(2));
    buttons->addWidget(m_sortButton);
    buttons->addWidget(m_moreButton);
    layout->addLayout(buttons);
    updateTexts();
}

void ZelBoxRecentFileTitleWidget::makeButtons()
{
    m_sortButton = new IconButton(QStringLiteral(":/icons_svg/sort.svg"), QString(), this);
    m_moreButton = new IconButton(QStringLiteral(":/icons_svg/more.svg"), QString(), this);
    connect(m_sortButton, &QAbstractButton::clicked, this, [this] { popUp(m_sortButton, m_sortMenu); });
    connect(m_moreButton, &QAbstractButton::clicked, this, [this] { popUp(m_moreButton, m_moreMenu); });
    connect(m_sortMenu, &RecentSortMenu::sortChosen, this, &ZelBoxRecentFileTitleWidget::sortChosen);
    connect(m_moreMenu, &KRecentFileTitleMenu::clearUnreadMsg, this,
        &ZelBoxRecentFileTitleWidget::clearUnreadMsg);
    connect(m_moreMenu, &KRecentFileTitleMenu::refreshRequested, this,
        &ZelBoxRecentFileTitleWidget::refreshRequested);
    connect(m_moreMenu, &KRecentFileTitleMenu::remindersChanged, this,
        &ZelBoxRecentFileTitleWidget::remindersChanged);
}

void ZelBoxRecentFileTitleWidget::popUp(IconButton *button, QMenu *menu)
{
    const QPoint below = button->mapToGlobal(QPoint(button->width(), button->height()));
    menu->popup(below - QPoint(menu->sizeHint().width(), 0));
}

void ZelBoxRecentFileTitleWidget::setListTools(bool shown)
{
    m_sortButton->setVisible(shown);
}

void ZelBoxRecentFileTitleWidget::setCount(int count)
{
    if (std::exchange(m_count, count) != count)
        updateTexts();
}

void ZelBoxRecentFileTitleWidget::setUnreadCount(int count)
{
    m_unread = count;
    m_moreMenu->setUnreadCount(count);
    updateUnread();
}

void ZelBoxRecentFileTitleWidget::setSort(const RecentSort &sort)
{
    m_sortMenu->setSort(sort);
}

void ZelBoxRecentFileTitleWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateTexts();
    QWidget::changeEvent(event);
}

void ZelBoxRecentFileTitleWidget::updateTexts()
{
    const QString number = QLocale().toString(m_count);
    m_title->setText(tr("Recent"));
    m_countLabel->setText(number);
    m_countLabel->setAccessibleName(tr("Number of files: %1").arg(number));
    m_countLabel->setVisible(m_count > 0);
    m_sortButton->setName(tr("Order"));
    m_moreButton->setName(tr("More"));
    updateUnread();
}

void ZelBoxRecentFileTitleWidget::updateUnread()
{
    m_unreadLabel->setVisible(m_unread > 0);
    if (m_unread <= 0)
        return;
    const QString text = tr("%n unread", nullptr, m_unread);
    m_unreadLabel->setText(QStringLiteral("<a href='#'>%1</a>").arg(text.toHtmlEscaped()));
    m_unreadLabel->setAccessibleName(text);
    m_unreadLabel->setToolTip(tr("Mark all as seen"));
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
