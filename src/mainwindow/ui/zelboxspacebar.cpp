#include "mainwindow/ui/zelboxspacebar.h"

#include "klitestyle.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

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
    : QWidget(parent), m_text(quietLabel(this)), m_bar(new QProgressBar(this))
{
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(tr("Used cloud space"));
    m_bar->setFixedHeight(KLiteStyle::dpiScaled(4));
    auto *more = linkButton(tr("More space"), this);
    connect(more, &QPushButton::clicked, this, &ZelBoxLoginSpaceWidget::onDilatationLinkClicked);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addWidget(more);
}

void ZelBoxLoginSpaceWidget::setSpace(qint64 usedBytes, qint64 totalBytes)
{
    const QLocale locale;
    const QString used = locale.formattedDataSize(usedBytes, 1);
    m_bar->setVisible(totalBytes > 0);
    if (totalBytes <= 0) {
        m_text->setText(tr("%1 used").arg(used));
        return;
    }
    m_bar->setRange(0, 1000);
    m_bar->setValue(int(qBound<qint64>(0, usedBytes * 1000 / totalBytes, 1000)));
    m_text->setText(tr("%1 of %2 used").arg(used, locale.formattedDataSize(totalBytes, 1)));
}

void ZelBoxLoginSpaceWidget::onDilatationLinkClicked()
{
    Q_EMIT dilatationRequested();
}

ZelBoxUnLoginSpaceWidget::ZelBoxUnLoginSpaceWidget(QWidget *parent) : QWidget(parent)
{
    auto *text = quietLabel(this);
    text->setText(tr("On this computer only"));
    auto *login = linkButton(tr("Connect a cloud"), this);
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
