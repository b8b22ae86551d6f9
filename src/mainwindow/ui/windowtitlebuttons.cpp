#include "mainwindow/ui/windowtitlebuttons.h"

#include <QHBoxLayout>

KWindowRestoreMaxButton::KWindowRestoreMaxButton(QWidget *parent) : IconButton(QString(), QString(), parent)
{
    setObjectName(QStringLiteral("restoreMaxButton"));
    setMaximized(false);
}

void KWindowRestoreMaxButton::setMaximized(bool maximized)
{
    setIconPath(maximized ? QStringLiteral(":/icons_svg/window_restore.svg")
                          : QStringLiteral(":/icons_svg/window_max.svg"));
    setName(maximized ? tr("Restore") : tr("Maximize"));
}

KZelBoxWindowTitleButtonGroup::KZelBoxWindowTitleButtonGroup(QWidget *parent)
    : QWidget(parent), m_restoreMax(new KWindowRestoreMaxButton(this))
{
    auto *minimize = new IconButton(QStringLiteral(":/icons_svg/window_min.svg"), tr("Minimize"), this);
    minimize->setObjectName(QStringLiteral("minButton"));
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close"), this);
    close->setObjectName(QStringLiteral("closeButton"));
    close->setHoverColor(KSkin::Color::Badge, KSkin::Color::OnBadge);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(minimize);
    layout->addWidget(m_restoreMax);
    layout->addWidget(close);
    setTabOrder(minimize, m_restoreMax); // which was made first
    setTabOrder(m_restoreMax, close);

    connect(minimize, &QAbstractButton::clicked, this, &KZelBoxWindowTitleButtonGroup::minBtnClicked);
    connect(
        m_restoreMax, &QAbstractButton::clicked, this, &KZelBoxWindowTitleButtonGroup::restoreMaxBtnClicked);
    connect(close, &QAbstractButton::clicked, this, &KZelBoxWindowTitleButtonGroup::closeBtnClicked);
}

void KZelBoxWindowTitleButtonGroup::setMaximized(bool maximized)
{
    m_restoreMax->setMaximized(maximized);
}
