#include "recentfile/ui/recentguides.h"

#include "recentfile/recenttelemetry.h"

#include <QDialogButtonBox>
#include <QPushButton>

namespace telemetry = zel::recent::telemetry;
using telemetry::Event;

ZelBoxRecentFileEmptyGuideWidget::ZelBoxRecentFileEmptyGuideWidget(QWidget *parent)
    : EmptyStateWidget(QStringLiteral(":/icons_svg/empty_recent.svg"), {}, {}, parent)
{
    QPushButton *open = addAction(tr("Open a File…"));
    connect(open, &QPushButton::clicked, this, &ZelBoxRecentFileEmptyGuideWidget::openFileRequested);
    m_offer = addAction(QString());
    connect(m_offer, &QPushButton::clicked, this, &ZelBoxRecentFileEmptyGuideWidget::onOffered);
    setReason(Reason::NothingOpened);
}

void ZelBoxRecentFileEmptyGuideWidget::setReason(Reason reason)
{
    m_reason = reason;
    QString text = tr("Documents that you open appear here, newest first.");
    m_offer->setVisible(reason != Reason::NothingOpened);
    switch (reason) {
    case Reason::NothingOpened:
        break;
    case Reason::NotLoggedIn:
        text = tr("Documents that you open appear here, newest first. Sign in to see those of your other "
                  "devices as well.");
        m_offer->setText(tr("Sign In"));
        break;
    case Reason::RoamingOff:
        text =
            tr("Documents that you open appear here, newest first. Those of your other devices appear once "
               "you switch that on.");
        m_offer->setText(tr("Switch On"));
        break;
    }
    setTexts(tr("No recent files yet"), text);
}

void ZelBoxRecentFileEmptyGuideWidget::onOffered()
{
    if (m_reason == Reason::NotLoggedIn) {
        telemetry::post(Event::EmptyPageLoginClick);
        Q_EMIT loginRequested();
    } else {
        telemetry::post(Event::EmptyPageEnableCarryClick);
        Q_EMIT enableRoamingRequested();
    }
}

ZelBoxRecentFileRoamingGuideWidget::ZelBoxRecentFileRoamingGuideWidget(QWidget *parent) : NoticeBar(parent)
{
    addLink(tr("How It Works"), [this] { Q_EMIT explanationRequested(); });
    connect(this, &NoticeBar::actionTriggered, this, [this] {
        telemetry::post(Event::EnableCarryClick);
        Q_EMIT enableRoamingRequested();
    });
    connect(this, &NoticeBar::dismissed, this, [this] { m_closed = m_closed || m_needed; });
}

void ZelBoxRecentFileRoamingGuideWidget::setNeeded(bool needed)
{
    m_needed = needed;
    if (!needed)
        hide();
    else if (!m_closed)
        showAction(tr("Files that you open on your other devices can appear here as well."), tr("Switch On"),
            Tone::Info, Stay);
}

ZelBoxRecentFileGuideDialog::ZelBoxRecentFileGuideDialog(QWidget *parent)
    : BoxDialog(tr("Files of other devices"), tr("One list for all your devices"), parent)
{
    addText(
        tr("When you open a document on another device that is signed in to the same cloud, it appears in "
           "this list, marked as new or modified until you have seen it."));
    addText(
        tr("The cloud service keeps the names and places of these documents. Without a server of your own, "
           "they stay on this computer."));
    QPushButton *know = buttons()->addButton(tr("Got It"), QDialogButtonBox::AcceptRole);
    QPushButton *settings = buttons()->addButton(tr("Settings…"), QDialogButtonBox::ActionRole);
    know->setDefault(true);
    connect(know, &QPushButton::clicked, this, [] { telemetry::post(Event::CarryPopupKnowClick); });
    connect(this, &QDialog::rejected, this, [] { telemetry::post(Event::CarryPopupCloseClick); });
    connect(settings, &QPushButton::clicked, this, [this] {
        telemetry::post(Event::CarryPopupClientJumpClick);
        Q_EMIT settingsRequested();
        accept();
    });
}

void ZelBoxRecentFileGuideDialog::showEvent(QShowEvent *event)
{
    BoxDialog::showEvent(event);
    telemetry::post(Event::CarryPopupShow);
}
