#pragma once

#include "base/foldernames.h"

#include <QStandardItemModel>

/// The folders of this computer, with their files or without, for choosing from. GUI thread. Reads a folder
/// when it is first looked into, on a thread that is left alone when the file system does not answer, so that
/// nothing here ever waits, not even at the end.
class FileTree final : public QStandardItemModel
{
    Q_OBJECT
public:
    enum Role { PathRole = Qt::UserRole, FolderRole };
    enum class Outcome { Read, Refused, NoAnswer };
    Q_ENUM(Outcome)

    FileTree(bool withFiles, QObject *parent);

    /// The row of a folder, made when it has not been read yet. `path` is absolute and clean.
    QModelIndex reach(const QString &path);
    static QString pathOf(const QModelIndex &index) { return index.data(PathRole).toString(); }
    static bool isFolder(const QModelIndex &index) { return index.data(FolderRole).toBool(); }
    /// A folder, unless an attempt to read it has failed: what a link on a slow mount leads to is not looked
    /// at.
    static bool mayBeRead(const QModelIndex &index);
    void read(const QModelIndex &folder); ///< again: rows change only where it differs

    bool hasChildren(const QModelIndex &parent = {}) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override { read(parent); }

Q_SIGNALS:
    void folderRead(const QString &path, FileTree::Outcome outcome);

private:
    QStandardItem *makeItem(const QString &folder, const zel::FolderName &entry) const;
    void take(QStandardItem *folder, const zel::FolderNames &names);

    const bool m_withFiles;
    QIcon m_folderIcon;
};
