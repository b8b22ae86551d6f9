#include "mainwindow/ui/zelboxspacebar.h"

#include "base/sizetext.h"
#include "cloud/cloudspace.h"
#include "klitestyle.h"
#include "widgets/nametext.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

constexpr int BarSteps = 1000;

QLabel *quietLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    label->setWordWrap(true);
    return label;
}

QPushButton *linkButton(const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ZelBoxLoginSpaceWidget::ZelBoxLoginSpaceWidget(QWidget *parent)
    : QWidget(parent),
      m_name(new QLabel(this)),
      m_text(quietLabel(this)),
      m_bar(new QProgressBar(this)),
      m_more(linkButton(tr("More space"), this))
{
    m_name->setTextFormat(Qt::PlainText);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Used cloud space"));
    m_bar->setRange(0, BarSteps);
    m_bar->setFixedHeight(KLiteStyle::dpiScaled(4));
    connect(m_more, &QPushButton::clicked, this, &ZelBoxLoginSpaceWidget::onDilatationLinkClicked);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({6, 0, 6, 0}));
    layout->setSpacing(KLiteStyle::dpiScaled(6));
    layout->addWidget(m_name);
    layout->addWidget(m_bar);
    layout->addWidget(m_text);
    layout->addWidget(m_more);
}

void ZelBoxLoginSpaceWidget::setAccount(const CloudSpace &space)
{
    const qint64 total = space.totalBytes();
    const QString title = space.isLocalAccount() ? tr("On this computer") : space.accountName();
    m_name->setText(m_name->fontMetrics().elidedText(title, Qt::ElideRight, KLiteStyle::dpiScaled(150)));
    m_name->setToolTip(zel::plainToolTip({space.accountName()}));
    m_bar->setVisible(space.isKnown() && total > 0);
    m_text->setVisible(space.isKnown());
    m_more->setVisible(!space.isLocalAccount());
    if (total > 0)
        m_bar->setValue(int(qBound<qint64>(0, space.usedBytes() * BarSteps / total, BarSteps)));
    m_text->setText(zel::spaceText(space.usedBytes(), total));
}

void ZelBoxLoginSpaceWidget::onDilatationLinkClicked()
{
    Q_EMIT dilatationRequested();
}

ZelBoxUnLoginSpaceWidget::ZelBoxUnLoginSpaceWidget(QWidget *parent) : QWidget(parent)
{
    auto *text = quietLabel(this);
    text->setText(tr("On this computer only"));
    auto *login = linkButton(tr("Sign In…"), this);
    login->setObjectName(QStringLiteral("loginLink"));
    connect(login, &QPushButton::clicked, this, &ZelBoxUnLoginSpaceWidget::onLoginLinkClicked);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({6, 0, 6, 0}));
    layout->setSpacing(KLiteStyle::dpiScaled(8));
    layout->addWidget(text);
    layout->addWidget(login);
}

void ZelBoxUnLoginSpaceWidget::onLoginLinkClicked()
{
    Q_EMIT loginRequested();
}

ZelBoxSpaceBar::ZelBoxSpaceBar(QWidget *parent) : QWidget(parent), m_layout(new QStackedLayout(this))
{
    setAccessibleName(tr("Cloud space"));
    auto *signedOut = new ZelBoxUnLoginSpaceWidget(this);
    m_layout->addWidget(signedOut);
    connect(signedOut, &ZelBoxUnLoginSpaceWidget::loginRequested, this, &ZelBoxSpaceBar::loginRequested);
}

ZelBoxLoginSpaceWidget *ZelBoxSpaceBar::loginWidget()
{
    if (!m_login) {
        m_login = new ZelBoxLoginSpaceWidget(this);
        m_layout->addWidget(m_login);
        connect(m_login, &ZelBoxLoginSpaceWidget::dilatationRequested, this,
            &ZelBoxSpaceBar::dilatationRequested);
    }
    return m_login;
}

void ZelBoxSpaceBar::setLoggedIn(bool loggedIn)
{
    m_layout->setCurrentIndex(loggedIn ? m_layout->indexOf(loginWidget()) : 0);
}

ZelBoxCloudSpaceActionWidget::ZelBoxCloudSpaceActionWidget(QWidget *parent)
    : QWidget(parent), m_text(quietLabel(this))
{
    m_text->setWordWrap(false);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(KLiteStyle::dpiScaledMargins({14, 8, 14, 8}));
    layout->addWidget(m_text);
}

void ZelBoxCloudSpaceActionWidget::setText(const QString &text)
{
    m_text->setText(text);
}
