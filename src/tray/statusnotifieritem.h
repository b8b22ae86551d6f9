#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QObject>
#include <QVector>

/// A picture as the tray's protocol carries it: rows of ARGB, 32 bits each, big-endian.
struct TrayPixmap
{
    int width = 0;
    int height = 0;
    QByteArray argb;
};
using TrayPixmapList = QVector<TrayPixmap>;
Q_DECLARE_METATYPE(TrayPixmap)
Q_DECLARE_METATYPE(TrayPixmapList)

struct TrayToolTip
{
    QString iconName;
    TrayPixmapList icon;
    QString title;
    QString text;
};
Q_DECLARE_METATYPE(TrayToolTip)

QDBusArgument &operator<<(QDBusArgument &argument, const TrayPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, TrayPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const TrayToolTip &tip);
const QDBusArgument &operator>>(const QDBusArgument &argument, TrayToolTip &tip);

/// The box's item in the tray as org.kde.StatusNotifierItem describes it. GUI thread; says the same whether
/// anybody listens or not. Pictures are painted when a tray asks for them.
class StatusNotifierItem final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category SCRIPTABLE true)
    Q_PROPERTY(QString Id READ id SCRIPTABLE true)
    Q_PROPERTY(QString Title READ title SCRIPTABLE true)
    Q_PROPERTY(QString Status READ status SCRIPTABLE true)
    Q_PROPERTY(int WindowId READ windowId SCRIPTABLE true)
    Q_PROPERTY(QString IconName READ noName SCRIPTABLE true)
    Q_PROPERTY(TrayPixmapList IconPixmap READ icon SCRIPTABLE true)
    Q_PROPERTY(QString OverlayIconName READ noName SCRIPTABLE true)
    Q_PROPERTY(TrayPixmapList OverlayIconPixmap READ noIcon SCRIPTABLE true)
    Q_PROPERTY(QString AttentionIconName READ noName SCRIPTABLE true)
    Q_PROPERTY(TrayPixmapList AttentionIconPixmap READ icon SCRIPTABLE true)
    Q_PROPERTY(QString AttentionMovieName READ noName SCRIPTABLE true)
    Q_PROPERTY(TrayToolTip ToolTip READ toolTip SCRIPTABLE true)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu SCRIPTABLE true)
    Q_PROPERTY(QDBusObjectPath Menu READ menu SCRIPTABLE true)
public:
    explicit StatusNotifierItem(QObject *parent = nullptr);

    void setUnread(int count);
    void setAttention(bool attention);     ///< the tray is to make it conspicuous
    void setText(const QString &text);     ///< second line of the tool tip
    void setMenuPath(const QString &path); ///< empty: the tray is to ask for contextMenuRequested()

    QString category() const { return QStringLiteral("ApplicationStatus"); }
    QString id() const { return QStringLiteral("zelbox"); }
    QString title() const { return QStringLiteral("ZEL Box"); }
    QString status() const;
    int windowId() const { return 0; }
    QString noName() const { return {}; }
    TrayPixmapList noIcon() const { return {}; }
    TrayPixmapList icon() const;
    TrayToolTip toolTip() const;
    bool itemIsMenu() const { return false; }
    QDBusObjectPath menu() const;

public Q_SLOTS: // the protocol's names
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    Q_SCRIPTABLE void ContextMenu(int x, int y);
    Q_SCRIPTABLE void Scroll(int delta, const QString &orientation);

Q_SIGNALS:
    Q_SCRIPTABLE void NewTitle();
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewAttentionIcon();
    Q_SCRIPTABLE void NewOverlayIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void NewStatus(const QString &status);

    void activated();
    void secondaryActivated();
    void contextMenuRequested(const QPoint &globalPos);

private:
    int m_unread = 0;
    bool m_attention = false;
    QString m_text;
    QString m_menuPath;
    mutable TrayPixmapList m_icon; // empty: to be painted
};
