#pragma once

#include "support/text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zeltest {

/// A folder with files, gone at its end. Names are below it, or absolute for what lies elsewhere.
class TempTree
{
public:
    TempTree() = default;
    /// With `make(entries)`.
    explicit TempTree(std::initializer_list<Text> entries) { make(entries); }

    QString path(const Text &name = {}) const { return QDir(m_folder.path()).filePath(name); }
    QByteArray bytes(const Text &name = {}) const { return QFile::encodeName(path(name)); } ///< of the path

    /// A small language: "docs/" is a folder, "a.txt" an empty file, "a.txt=text" one with a text, "b->a.txt"
    /// a symbolic link whose target is below the tree too. Folders above are made.
    void make(std::initializer_list<Text> entries) const
    {
        for (const QString entry : entries) {
            const int arrow = entry.indexOf(QLatin1String("->"));
            const int equals = entry.indexOf(QLatin1Char('='));
            if (entry.endsWith(QLatin1Char('/')))
                check(QDir().mkpath(path(entry)), entry);
            else if (arrow >= 0)
                link(entry.mid(arrow + 2), entry.left(arrow));
            else
                write(entry.left(equals), equals < 0 ? QByteArray() : entry.mid(equals + 1).toUtf8());
        }
    }
    /// Writes a file, over what was there, and returns its path. `mode` when it is to have other permissions.
    QString write(const Text &name, const QByteArray &content = {}, QFile::Permissions mode = {}) const
    {
        QFile file(path(name));
        check(QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)
                && file.write(content) == content.size() && file.flush(),
            file.fileName());
        if (mode)
            file.setPermissions(mode);
        return file.fileName();
    }
    /// A program for /bin/sh.
    QString writeScript(const Text &name, const QByteArray &commands) const
    {
        return write(name, "#!/bin/sh\n" + commands, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void link(const Text &target, const Text &name) const
    {
        check(
            QDir().mkpath(QFileInfo(path(name)).path()) && QFile::link(path(target), path(name)), path(name));
    }
    QByteArray read(const Text &name) const ///< empty when it is no file that can be read
    {
        QFile file(path(name));
        return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What is in a folder of the tree, by name, hidden and dangling ones too.
    QStringList list(const Text &folder = {}) const
    {
        return QDir(path(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

private:
    static void check(bool made, const QString &what)
    {
        if (!made)
            qFatal("cannot make %s", qPrintable(what));
    }
    QTemporaryDir m_folder;
};

} // namespace zeltest
