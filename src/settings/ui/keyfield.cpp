#include "settings/ui/keyfield.h"

#include "klitestyle.h"
#include "klook.h"
#include "kskin.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int Width = 132;
constexpr Qt::KeyboardModifiers Modifiers =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
    case Qt::Key_Multi_key:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_unknown:
    case 0:
        return true;
    default:
        return false;
    }
}

// Where Shift only makes another sign of the key ("!" of "1"), the sign already says it.
Qt::KeyboardModifiers modifiersOf(const QKeyEvent &event)
{
    Qt::KeyboardModifiers held = event.modifiers() & Modifiers;
    const int key = event.key();
    const bool isSign = key > Qt::Key_Space && key < 0x80 && !(key >= Qt::Key_A && key <= Qt::Key_Z)
        && !(key >= Qt::Key_0 && key <= Qt::Key_9);
    if (isSign)
        held &= ~Qt::ShiftModifier;
    return held;
}

} // namespace

KeyField::KeyField(QWidget *parent) : QPushButton(parent)
{
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // narrower where there is no room
    connect(this, &QPushButton::clicked, this, [this] { wait(!m_waiting); });
    showText();
}

QSize KeyField::sizeHint() const
{
    return {qMax(KLiteStyle::dpiScaled(Width), QPushButton::sizeHint().width()),
        QPushButton::sizeHint().height()};
}

void KeyField::setKeys(const QKeySequence &keys)
{
    m_keys = keys;
    wait(false);
}

void KeyField::wait(bool on)
{
    m_waiting = on;
    m_held = {};
    showText();
    setToolTip(on ? tr("Backspace: no keys. Esc: the same as before.") : QString());
    if (on)
        Q_EMIT waitBegun();
}

void KeyField::showText()
{
    QString text = m_keys.isEmpty() ? tr("None") : m_keys.toString(QKeySequence::NativeText);
    if (m_waiting && !m_held)
        text = tr("Press keys…");
    else if (m_waiting) // "Ctrl+Shift+…"
        text = QKeySequence(int(m_held)).toString(QKeySequence::NativeText) + QChar(0x2026);
    setText(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
    setAccessibleDescription(
        m_waiting ? tr("Waiting for keys. Escape gives up, Backspace means none.") : m_keys.toString());
}

// While it waits, every key is meant for it, also those of shortcuts and of the way to the next control.
bool KeyField::event(QEvent *event)
{
    if (m_waiting && event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (m_waiting && event->type() == QEvent::KeyPress) {
        keyPressEvent(static_cast<QKeyEvent *>(event));
        return true;
    }
    return QPushButton::event(event);
}

void KeyField::keyPressEvent(QKeyEvent *event)
{
    const bool starts = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!m_waiting && starts && !event->isAutoRepeat()) {
        wait(true);
        event->accept();
    } else if (!m_waiting) {
        QPushButton::keyPressEvent(event);
    } else {
        event->accept();
        if (!event->isAutoRepeat())
            take(*event);
    }
}

void KeyField::take(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = modifiersOf(event);
    if (isModifier(event.key())) {
        m_held = held;
        return showText();
    }
    if (!held && event.key() == Qt::Key_Escape)
        return wait(false);
    wait(false);
    const bool none = !held && (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete);
    Q_EMIT keysChosen(none ? QKeySequence() : QKeySequence(event.key() | int(held)));
}

void KeyField::keyReleaseEvent(QKeyEvent *event)
{
    if (!m_waiting)
        return QPushButton::keyReleaseEvent(event);
    event->accept();
    m_held = event->modifiers() & Modifiers;
    showText();
}

void KeyField::focusOutEvent(QFocusEvent *event)
{
    if (m_waiting)
        wait(false);
    QPushButton::focusOutEvent(event);
}

void KeyField::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    if (!m_waiting)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(KSkin::color(KSkin::Color::Accent), KLiteStyle::dpiScaledF(zel::look::FocusWidth)));
    const qreal radius = KLiteStyle::dpiScaledF(zel::look::Radius);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
}
