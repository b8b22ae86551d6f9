#include "settings/ui/settingscard.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>

namespace look = zel::look;

namespace {

constexpr int RoomForTexts = 200; // beside the control

// A label with a buddy would make a shortcut of what follows "&".
QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QLabel *wrappedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // Long words must not widen the page.
    label->setMinimumWidth(1);
    QSizePolicy policy = label->sizePolicy(); // which knows of heights that depend on the width
    policy.setHorizontalPolicy(QSizePolicy::Expanding);
    label->setSizePolicy(policy);
    return label;
}

} // namespace

SettingsRow::SettingsRow(const QString &title, const QString &explanation, QWidget *control, QWidget *parent)
    : QWidget(parent),
      m_layout(new QHBoxLayout(this)),
      m_title(wrappedLabel(title, this)),
      m_explanation(wrappedLabel(explanation, this)),
      m_control(control)
{
    m_explanation->setForegroundRole(QPalette::PlaceholderText);
    m_explanation->setVisible(!explanation.isEmpty());
    auto *texts = new QVBoxLayout;
    texts->setSpacing(KLiteStyle::dpiScaled(2));
    texts->addStretch(1);
    texts->addWidget(m_title);
    texts->addWidget(m_explanation);
    texts->addStretch(1);

    m_layout->setContentsMargins(KLiteStyle::dpiScaledMargins({look::SpaceL, 10, look::SpaceM, 10}));
    m_layout->addLayout(texts, 1);
    if (!control)
        return;
    m_layout->setSpacing(KLiteStyle::dpiScaled(look::SpaceL));
    m_layout->addWidget(control, 0, Qt::AlignVCenter | Qt::AlignLeft);
    m_title->setBuddy(control);
    setTitle(title);
    // Enter elsewhere in the dialog must not press it.
    if (auto *push = qobject_cast<QPushButton *>(control))
        push->setAutoDefault(false);
    const auto *button = qobject_cast<const QAbstractButton *>(control);
    const bool saysItself = button && !button->text().isEmpty();
    if (control->accessibleName().isEmpty() && !saysItself)
        control->setAccessibleName(title);
    if (control->accessibleDescription().isEmpty())
        control->setAccessibleDescription(explanation);
}

void SettingsRow::setTitle(const QString &title)
{
    m_title->setText(m_control ? withoutMnemonic(title) : title);
}

void SettingsRow::setExplanation(const QString &text)
{
    m_explanation->setText(text);
    m_explanation->setVisible(!text.isEmpty());
    if (m_control)
        m_control->setAccessibleDescription(text);
}

void SettingsRow::setRowEnabled(bool enabled)
{
    m_title->setEnabled(enabled);
    m_explanation->setEnabled(enabled);
    if (m_control)
        m_control->setEnabled(enabled);
}

bool SettingsRow::isSwitch() const
{
    const auto *button = qobject_cast<const QAbstractButton *>(m_control);
    return button && button->isCheckable();
}

void SettingsRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!m_control || isSwitch())
        return;
    const bool narrow = width() < m_control->sizeHint().width() + KLiteStyle::dpiScaled(RoomForTexts);
    m_layout->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_layout->setSpacing(KLiteStyle::dpiScaled(narrow ? look::SpaceS : look::SpaceL));
}

void SettingsRow::mouseReleaseEvent(QMouseEvent *event)
{
    if (isSwitch() && event->button() == Qt::LeftButton && rect().contains(event->pos()))
        static_cast<QAbstractButton *>(m_control)->click();
    else
        QWidget::mouseReleaseEvent(event);
}

SettingsCard::SettingsCard(QWidget *parent) : QFrame(parent), m_rows(new QVBoxLayout(this))
{
    m_rows->setContentsMargins(1, 1, 1, 1);
    m_rows->setSpacing(1);
}

SettingsRow *SettingsCard::addRow(const QString &title, const QString &explanation, QWidget *control)
{
    auto *row = new SettingsRow(title, explanation, control, this);
    m_rows->addWidget(row);
    return row;
}

void SettingsCard::addRow(QWidget *row)
{
    m_rows->addWidget(row);
}

void SettingsCard::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal radius = KLiteStyle::dpiScaledF(look::RadiusLarge);
    painter.setPen(QPen(KSkin::color(KSkin::Color::Border), 1));
    painter.setBrush(KSkin::color(KSkin::Color::Surface));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const int inset = KLiteStyle::dpiScaled(look::SpaceL);
    bool first = true;
    for (int i = 0; i < m_rows->count(); ++i) {
        const QWidget *row = m_rows->itemAt(i)->widget();
        if (!row || row->isHidden())
            continue;
        if (!std::exchange(first, false))
            painter.fillRect(
                QRect(inset, row->y() - 1, width() - 2 * inset, 1), KSkin::color(KSkin::Color::Border));
    }
}
