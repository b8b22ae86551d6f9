#pragma once

#include "platform/impl/recentstore/recentproxy.h"
#include "platform/impl/recentstore/xbel/xbelsources.h"
#include "support/table.h"
#include "support/temptree.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSignalSpy>
#include <QUrl>

namespace zel::recent::test {

/// One bookmark as another program would write it.
struct Bookmark
{
    QString path;
    int minute = 0;  ///< after noon of 2024-05-06, UTC
    QString extra{}; ///< inside the metadata
};

inline qint64 timeOf(int minute)
{
    return QDateTime(QDate(2024, 5, 6), QTime(12, 0), Qt::UTC).toMSecsSinceEpoch() + minute * 60000LL;
}

inline QString isoOf(int minute)
{
    return QDateTime::fromMSecsSinceEpoch(timeOf(minute), Qt::UTC).toString(Qt::ISODate);
}

inline QString inList(const QString &bookmarks)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\""
           " xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\""
           " xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"_s
        + bookmarks + "</xbel>\n"_s;
}

inline QString bookmarkText(const Bookmark &bookmark)
{
    const QString address =
        QString::fromLatin1(QUrl::fromLocalFile(bookmark.path).toEncoded()).toHtmlEscaped();
    return "<bookmark href=\"%1\" added=\"%2\" modified=\"%2\" visited=\"%2\"><info>"
           "<metadata owner=\"http://freedesktop.org\"><mime:mime-type type=\"text/plain\"/>"
           "<bookmark:applications><bookmark:application name=\"Writer\" exec=\"&apos;writer %u&apos;\""
           " modified=\"%2\" count=\"1\"/></bookmark:applications>%3</metadata></info></bookmark>\n"_s.arg(
               address, isoOf(bookmark.minute), bookmark.extra);
}

inline QByteArray listText(const QVector<Bookmark> &bookmarks)
{
    QString text;
    for (const Bookmark &bookmark : bookmarks)
        text += bookmarkText(bookmark);
    return inList(text).toUtf8();
}

/// Takes the file's place at once, as desktop programs do it.
inline bool replaceFile(const QString &path, const QByteArray &data)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit();
}

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A home of its own for one store.
struct Home : zeltest::TempTree
{
    RecentPlaces places{path("data/zelbox/recent.db"_s), path("data/recently-used.xbel"_s), path("var/app"_s),
        {path("tmp"_s)}};

    Home() = default;
    explicit Home(const QVector<Bookmark> &desktop) ///< with that list of the desktop
    {
        if (!setDesktop(desktop))
            qFatal("the fixture cannot write");
    }
    QString sandboxList(const QString &application) const
    {
        return path("var/app/"_s + application + "/data/recently-used.xbel"_s);
    }
    bool setDesktop(const QVector<Bookmark> &bookmarks) const
    {
        return replaceFile(places.desktopList, listText(bookmarks));
    }
};

/// Names and kinds in the order given, as "b:8 a:32".
inline QString textOf(const RecordInfoList &records)
{
    const auto text = [](const RecentFileInfo &r) -> QString {
        return r.displayText + QLatin1Char(':') + QString::number(r.kind);
    };
    return zeltest::joined(records, text);
}

/// A running store and everything that it says.
struct Store
{
    KRecentFileEvents events;
    QSignalSpy initFinished{&events, &KRecentFileEvents::initFinished};
    QSignalSpy arrived{&events, &KRecentFileEvents::recordsArrived};
    QSignalSpy added{&events, &KRecentFileEvents::recordsAdded};
    QSignalSpy removed{&events, &KRecentFileEvents::recordsRemoved};
    QSignalSpy changed{&events, &KRecentFileEvents::recordsChanged};
    QSignalSpy keeping{&events, &KRecentFileEvents::keepingChanged};
    RecentProxy proxy;

    explicit Store(const Home &home, WorkMode mode = WorkMode::Full) : proxy(home.places, mode, events) { }

    bool load(int timeoutMs = 20000)
    {
        proxy.initKind(RecentRecordKind::Roaming);
        return initFinished.wait(timeoutMs);
    }
    QString shown() const { return textOf(proxy.records()); }
    RecentFileInfo record(const QString &path) const
    {
        const RecordInfoList records = proxy.records();
        for (const RecentFileInfo &record : records) {
            if (record.path == path)
                return record;
        }
        return {};
    }
};

struct LoadedStore : Store
{
    explicit LoadedStore(const Home &home, WorkMode mode = WorkMode::Full) : Store(home, mode)
    {
        if (!load())
            qFatal("the store does not load");
    }
};

} // namespace zel::recent::test
