#include "recentfile/ui/recentguides.h"

#include "klitestyle.h"
#include "kskin.h"
#include "recentfile/recenttelemetry.h"
#include "widgets/iconbutton.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
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

RecentNothingFoundWidget::RecentNothingFoundWidget(QWidget *parent)
    : EmptyStateWidget(QStringLiteral(":/icons_svg/empty_generic.svg"), tr("Nothing found"),
        tr("No recent file has this name or is of this kind."), parent)
{
    QPushButton *clear = addAction(tr("Show All"));
    connect(clear, &QPushButton::clicked, this, &RecentNothingFoundWidget::clearRequested);
}

ZelBoxRecentFileRoamingGuideWidget::ZelBoxRecentFileRoamingGuideWidget(QWidget *parent) : QFrame(parent)
{
    auto *text = new QLabel(tr("Files that you open on your other devices can appear here as well."), this);
    text->setWordWrap(true);
    auto *enable = new QPushButton(tr("Switch On"), this);
    auto *explain = new QPushButton(tr("How It Works"), this);
    explain->setFlat(true);
    auto *close = new IconButton(QStringLiteral(":/icons_svg/window_close.svg"), tr("Close notice"), this);
    close->setGlyphSize(12);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({16, 6, 6, 6}));
    layout->addWidget(text, 1);
    for (QWidget *button :
        {static_cast<QWidget *>(explain), static_cast<QWidget *>(enable), static_cast<QWidget *>(close)})
        layout->addWidget(button, 0, Qt::AlignVCenter);
    connect(explain, &QPushButton::clicked, this, &ZelBoxRecentFileRoamingGuideWidget::explanationRequested);
    connect(enable, &QPushButton::clicked, this, [this] {
        telemetry::post(Event::EnableCarryClick);
        Q_EMIT enableRoamingRequested();
    });
    connect(close, &QAbstractButton::clicked, this, [this] {
        m_closed = true;
        hide();
    });
    hide();
}

void ZelBoxRecentFileRoamingGuideWidget::setNeeded(bool needed)
{
    setVisible(needed && !m_closed);
}

void ZelBoxRecentFileRoamingGuideWidget::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(KSkin::color(KSkin::Color::Hover));
    const qreal radius = KLiteStyle::dpiScaledF(6);
    painter.drawRoundedRect(rect(), radius, radius);
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
