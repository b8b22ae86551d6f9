#pragma once

#include "service/drive/localdrive.h"

namespace zel::service {

/// A local drive in a temporary folder, its database beside it, and what other programs do in it.
class DriveFixture
{
public:
    DriveFixture() { reopen(); }

    LocalDrive &drive() { return *m_drive; }
    const std::shared_ptr<DriveClaim> &claim() const { return m_claim; }
    QString root() const { return m_folder.filePath("drive"_s); }
    QString outside(const QString &name) const { return m_folder.filePath(name); }
    QString at(const char *path) const { return root() + QLatin1Char('/') + QString::fromUtf8(path); }
    QString database() const { return outside("drive.db"_s); }

    /// As the next start of the service.
    bool reopen()
    {
        close();
        open();
        return bool(m_drive->prepare());
    }
    /// For another process, as one may have the folder at a time.
    void close()
    {
        m_drive.reset();
        m_claim = std::make_shared<DriveClaim>();
        m_database.close();
    }
    void open()
    {
        m_database.open(database());
        m_database.useWriteAheadLog(); // as the service has it
        m_drive = std::make_unique<LocalDrive>(root(), m_database, m_claim);
    }

    /// Done by another program: a file, or a folder when the path ends with "/".
    bool make(const char *path, const QByteArray &content = "x")
    {
        const QString full = at(path);
        if (full.endsWith(QLatin1Char('/')))
            return QDir().mkpath(full);
        QFile file(full);
        return QDir().mkpath(QFileInfo(full).path()) && file.open(QIODevice::WriteOnly)
            && file.write(content) == content.size();
    }
    bool outsideMove(const char *from, const char *to)
    {
        return ::rename(at(from).toUtf8().constData(), at(to).toUtf8().constData()) == 0;
    }

    QString id(const char *path)
    {
        const auto item = drive().resolve(QString::fromUtf8(path));
        return item ? item->id : QString();
    }
    /// Where the drive says that an item is; "-" when it is nowhere.
    QString where(const QString &id)
    {
        const auto steps = drive().pathOf(id);
        QStringList names;
        for (int i = 1; steps && i < steps->size(); ++i)
            names.append(steps->at(i).name);
        return steps ? names.join(QLatin1Char('/')) : "-"_s;
    }
    QByteArray content(const QString &id)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        return drive().read(id, buffer, {}) ? buffer.data() : QByteArray("<error>");
    }
    DriveResult<DriveItem> write(const QString &parent, const QString &name, QByteArray bytes,
        DriveConflict conflict = DriveConflict::Fail)
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        return drive().write(parent, name, buffer, {conflict, -1}, {});
    }

    /// Everything on the disk, hidden files too: "a/ a/b.txt=content", sorted. The empty trash is left out.
    QString tree() const
    {
        QStringList lines;
        QDirIterator it(root(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
            QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            const QString path = QDir(root()).relativeFilePath(it.filePath());
            const bool folder = it.fileInfo().isDir() && !it.fileInfo().isSymLink();
            if (folder)
                lines.append(path + QLatin1Char('/'));
            else if (it.fileInfo().isSymLink() || !file.open(QIODevice::ReadOnly))
                lines.append(path + QLatin1Char('@'));
            else
                lines.append(path + QLatin1Char('=') + QString::fromUtf8(file.read(32)));
        }
        lines.removeAll(".zel-trash/"_s);
        lines.sort();
        return lines.join(QLatin1Char(' '));
    }
    QString listed(const QString &folderId)
    {
        const auto items = drive().list(folderId);
        QStringList names;
        for (const DriveItem &item : items ? *items : QVector<DriveItem>())
            names.append(item.isFolder ? item.name + QLatin1Char('/') : item.name);
        names.sort();
        return items ? names.join(QLatin1Char(' ')) : "<error>"_s;
    }

private:
    QTemporaryDir m_folder;
    std::shared_ptr<DriveClaim> m_claim = std::make_shared<DriveClaim>();
    sqlite::Database m_database;
    std::unique_ptr<LocalDrive> m_drive;
};

/// "ok" or the kind of the error as a word.
template <typename T> QString outcome(const DriveResult<T> &result)
{
    static const char *const Names[] = {"notFound", "exists", "denied", "invalidName", "notEmpty", "changed",
        "diskFull", "io", "offline", "cancelled"};
    return result ? "ok"_s : QString::fromLatin1(Names[int(result.error().kind)]);
}

} // namespace zel::service
