#pragma once

#include <QObject>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>

class BoxPage;
class BoxPageHost;
class KCloudSvrProxy;
class QWidget;

/// What the main window knows of a page before somebody visits it.
namespace zel {

/// A page as it was made.
struct MadePage
{
    QWidget *widget = nullptr; ///< owned by the parent that it was made with
    BoxPage *page = nullptr;   ///< owned by `widget`; null: nothing on it can be searched or told
};

struct PageInfo
{
    QString key;   ///< source key
    QString title; ///< translated
    QString icon;  ///< line icon resource
    /// Makes the page on its first visit; `cloud` is not owned and may be null. `before` is what the page
    /// that had its place in another window handed over; null: nothing.
    std::function<MadePage(KCloudSvrProxy *cloud, QWidget *parent, std::unique_ptr<QObject> before)> make;
    /// Tells the page's host what is unread, from when the box has come up and for as long as the window is
    /// there; the page need not tell it then. What it makes is a child of `parent`, which `host` outlives.
    /// None: there are no marks before the first visit.
    std::function<void(KCloudSvrProxy *cloud, BoxPageHost &host, QObject *parent)> watchUnread = {};
};

/// In the order of their numbers (the command line's "tab"). The first is made with the window.
using PageList = QVector<PageInfo>;

/// What zel::Shortcuts calls the way to the page of this number.
inline QString pageShortcut(int number)
{
    return QStringLiteral("page.%1").arg(number + 1);
}

} // namespace zel
