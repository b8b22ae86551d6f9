#include "tray/statusnotifieritem.h"

#include "tray/trayimage.h"

#include <QDBusMetaType>
#include <QImage>
#include <QPoint>
#include <QtEndian>

QDBusArgument &operator<<(QDBusArgument &argument, const TrayPixmap &pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.argb;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, TrayPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.argb;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const TrayToolTip &tip)
{
    argument.beginStructure();
    argument << tip.iconName << tip.icon << tip.title << tip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, TrayToolTip &tip)
{
    argument.beginStructure();
    argument >> tip.iconName >> tip.icon >> tip.title >> tip.text;
    argument.endStructure();
    return argument;
}

namespace {

// Panels at 1x to 3x; a tray takes the nearest.
constexpr int Sizes[] = {16, 22, 24, 32, 44, 48, 64};

TrayPixmap pixmapOf(const QImage &picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    TrayPixmap pixmap{image.width(), image.height(), {}};
    pixmap.argb.resize(image.width() * image.height() * 4);
    auto *to = reinterpret_cast<uchar *>(pixmap.argb.data());
    for (int y = 0; y < image.height(); ++y, to += image.width() * 4)
        qToBigEndian<quint32>(image.constScanLine(y), image.width(), to);
    return pixmap;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(QObject *parent) : QObject(parent)
{
    qDBusRegisterMetaType<TrayPixmap>();
    qDBusRegisterMetaType<TrayPixmapList>();
    qDBusRegisterMetaType<TrayToolTip>();
}

void StatusNotifierItem::setUnread(int count)
{
    if (count == m_unread)
        return;
    m_unread = count;
    m_icon.clear();
    Q_EMIT NewIcon();
    Q_EMIT NewAttentionIcon();
}

void StatusNotifierItem::setAttention(bool attention)
{
    if (attention == m_attention)
        return;
    m_attention = attention;
    Q_EMIT NewStatus(status());
}

void StatusNotifierItem::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT NewToolTip();
}

void StatusNotifierItem::setMenuPath(const QString &path)
{
    m_menuPath = path;
}

QString StatusNotifierItem::status() const
{
    return m_attention ? QStringLiteral("NeedsAttention") : QStringLiteral("Active");
}

TrayPixmapList StatusNotifierItem::icon() const
{
    if (m_icon.isEmpty()) {
        for (const int size : Sizes)
            m_icon.append(pixmapOf(zel::tray::image(size, m_unread)));
    }
    return m_icon;
}

TrayToolTip StatusNotifierItem::toolTip() const
{
    // Trays show it as rich text.
    return {{}, {}, title(), m_text.toHtmlEscaped()};
}

QDBusObjectPath StatusNotifierItem::menu() const
{
    return QDBusObjectPath(m_menuPath.isEmpty() ? QStringLiteral("/NO_DBUSMENU") : m_menuPath);
}

void StatusNotifierItem::Activate(int, int)
{
    Q_EMIT activated();
}

void StatusNotifierItem::SecondaryActivate(int, int)
{
    Q_EMIT secondaryActivated();
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    Q_EMIT contextMenuRequested({x, y});
}

void StatusNotifierItem::Scroll(int, const QString &) { }
