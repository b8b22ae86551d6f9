#pragma once

#include "methodclient.h"
#include "service/methods/drive/drivecontext.h"
#include "service/methods/drive/driveevents.h"
#include "service/methods/recycle/localtrash.h"
#include "service/methods/roaming/roamingmethods.h"
#include "service/transfer/localdrivesource.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A service's lower half on temporary folders: the database, a local drive, and a client.
class DriveFixture
{
public:
    QTemporaryDir place;
    MethodClient client;
    const zel::service::Identity me{"u1"_s, "User"_s, "this"_s, "This machine"_s};
    const zel::service::IdentitySource identity = [this] { return me; };

    QString root() const { return place.filePath("Drive"_s); }
    QString local(const char *name) const { return place.filePath(QLatin1String(name)); }
    QString inDrive(const char *path) const { return root() + QLatin1Char('/') + QLatin1String(path); }

    zel::service::CloudDatabase database{place.filePath("cloud.db"_s)};
    zel::service::RoamingTable roaming{database, 5};
    const zel::service::DriveThread::Factory drives =
        zel::service::localDrives(root(), place.filePath("drive.db"_s));
    zel::service::DriveThread quick{drives};
    zel::service::DriveThread bulk{drives};
    zel::service::DriveThreads localThreads{drives};
    zel::service::DriveEvents events{quick, client, identity};
    zel::service::RoamingMethods roamingMethods{roaming, quick, client, identity};
    zel::service::LocalTrash localTrash{root()};
    const zel::service::DriveContext context{
        quick, bulk, localThreads, events, localTrash, client, identity, [](zel::vela::CloudItem &) {}};

    DriveFixture()
    {
        roamingMethods.serve(client.methods);
        addDriveQueries(client.methods, context);
        addDriveSearch(client.methods, context);
        addThumbnails(client.methods, context);
        addDriveEdits(client.methods, context);
        addDriveBatches(client.methods, context);
        addRemoval(client.methods, context);
        addRecycleMethods(client.methods, context);
    }

    /// Two files, and two more in folders.
    void fill() { fill({"a.txt=one"_s, "b.txt=three"_s, "d/a.txt=old"_s, "d/e/f.txt"_s}); }
    /// Files in the drive by "path" or "path=content", folders by "path/".
    void fill(const QStringList &entries)
    {
        QDir().mkpath(root());
        for (const QString &entry : entries)
            write(root() + QLatin1Char('/') + entry.section(QLatin1Char('='), 0, 0),
                entry.section(QLatin1Char('='), 1).toUtf8());
    }
    static void write(const QString &path, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!path.endsWith(QLatin1Char('/')) && (!file.open(QIODevice::WriteOnly) || file.write(content) < 0))
            qFatal("the fixture cannot write");
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    /// All that is in a folder, hidden names too: "a.txt b/ b/c.txt".
    static QString tree(const QString &folder) { return names(QDir(folder)).join(QLatin1Char(' ')); }
    /// Such a text in a fixed order; "$" stands for a blank in a name.
    static QStringList sorted(QString tree)
    {
        tree.replace(" ("_s, "$("_s);
        QStringList names = tree.split(QLatin1Char(' '));
        names.sort();
        return names;
    }
    static QStringList names(const QDir &folder)
    {
        QStringList found;
        const auto entries =
            folder.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
        for (const QFileInfo &entry : entries) {
            if (entry.fileName() == ".zel-trash"_s)
                continue;
            found.append(entry.isDir() ? entry.fileName() + QLatin1Char('/') : entry.fileName());
            const QStringList below = entry.isDir() ? names(QDir(entry.filePath())) : QStringList();
            for (const QString &name : below)
                found.append(entry.fileName() + QLatin1Char('/') + name);
        }
        return found;
    }

    static QString names(const std::vector<zel::vela::CloudItem> &items)
    {
        return zeltest::joined(items, &zel::vela::CloudItem::name);
    }
    zel::vela::GetInfoListResult list(const zel::vela::GetInfoListArg &request = {})
    {
        return client.call<zel::vela::GetInfoListResult>("getInfoList", request);
    }
    zel::vela::RemoveResult remove(const zel::vela::CloudItemId &item)
    {
        return client.call<zel::vela::RemoveResult>("remove", filled(&zel::vela::RemoveArg::item, item));
    }
    std::vector<zel::vela::RecycleBinItem> recycleBin()
    {
        using namespace zel::vela;
        return client.call<GetRecycleBinListResult>("getRecycleBinList", GetRecycleBinListArg()).items;
    }
    zel::vela::RecoverRecyclesResult recover(const std::vector<std::string> &ids)
    {
        return client.call<zel::vela::RecoverRecyclesResult>(
            "recoverRecycles", filled(&zel::vela::RecoverRecyclesArg::recycleIds, ids));
    }
    zel::vela::CloudItemId idOf(const char *path)
    {
        return client
            .call<zel::vela::GetFileIdByFilePathResult>("getFileIdByFilePath",
                filled(&zel::vela::GetFileIdByFilePathArg::filePath, path,
                    &zel::vela::GetFileIdByFilePathArg::pathType, 1))
            .item;
    }
};

/// With the files of fill().
struct FilledDrive : DriveFixture
{
    FilledDrive() { fill(); }
};
