#include "kdocumentopener.h"
#include "privatebus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

#include <unistd.h>

using Outcome = KDocumentOpener::Outcome;

/// Plays the file manager.
class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shown;
    bool silent = false;

public Q_SLOTS:
    void ShowItems(const QStringList &items, const QString &, const QDBusMessage &message)
    {
        message.setDelayedReply(silent); // which then never comes
        shown += items;
    }
};

class OpenerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The desktop's opener of this test notes what it was called with.
    void initTestCase()
    {
        QVERIFY(m_programs.isValid() && m_files.isValid());
        QFile program(m_programs.filePath(QStringLiteral("xdg-open")));
        QVERIFY(program.open(QIODevice::WriteOnly));
        QVERIFY(
            program.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"" + QFile::encodeName(noteFile()) + "\"\n")
            > 0);
        program.close();
        QVERIFY(program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("PATH", QFile::encodeName(m_programs.path()) + ':' + qgetenv("PATH"));
    }
    void init() { QFile::remove(noteFile()); }

    void open_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<Outcome>("outcome");
        QTest::newRow("file") << QStringLiteral("Größe & mehr 100%.txt") << Outcome::Opened;
        QTest::newRow("missing") << QStringLiteral("none.txt") << Outcome::Missing;
        QTest::newRow("below a file") << QStringLiteral("Größe & mehr 100%.txt/x") << Outcome::Missing;
        QTest::newRow("link to itself") << QStringLiteral("loop") << Outcome::NotReadable;
        if (::geteuid() != 0) // root may read everything
            QTest::newRow("no permission") << QStringLiteral("secret.txt") << Outcome::NotReadable;
    }
    void open()
    {
        QFETCH(QString, name);
        QFETCH(Outcome, outcome);
        makeFiles();
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        const QString path = m_files.filePath(name);
        opener.open(path);
        QCOMPARE(opened.count(), 0); // never from inside the call
        QTRY_COMPARE(opened.count(), 1);
        QCOMPARE(opened.constFirst().at(0).toString(), path);
        QCOMPARE(opened.constFirst().at(1).value<Outcome>(), outcome);
        if (outcome == Outcome::Opened)
            QTRY_COMPARE(notes(), QStringList{uriOf(path)});
        else
            QCOMPARE(notes(), QStringList());
    }

    void openerMayDieMeanwhile()
    {
        auto opener = std::make_unique<KDocumentOpener>();
        QSignalSpy opened(opener.get(), &KDocumentOpener::opened);
        opener->open(m_files.filePath(QStringLiteral("none")));
        opener.reset();
        KDocumentOpener other;
        QSignalSpy otherOpened(&other, &KDocumentOpener::opened);
        other.open(m_files.filePath(QStringLiteral("none")));
        QTRY_COMPARE(otherOpened.count(), 1);
        QCOMPARE(opened.count(), 0);
    }

    void reveal_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("manager");
        QTest::addColumn<QString>("folder"); // that is opened instead, below the test's
        const auto row = [](const char *title, const char *name, const char *manager, const char *folder) {
            QTest::newRow(title) << QString::fromLatin1(name) << QString::fromLatin1(manager)
                                 << QString::fromLatin1(folder);
        };
        row("no file manager", "a b#c.txt", "none", ".");
        row("selects", "a b#c.txt", "answers", "");
        row("selects a dangling link", "loop", "answers", "");
        row("never answers", "a b#c.txt", "silent", ".");
        row("file is gone", "sub/none.txt", "answers", "sub");
        row("folder is gone", "none/none.txt", "answers", "");
    }
    void reveal()
    {
        QFETCH(QString, name);
        QFETCH(QString, manager);
        QFETCH(QString, folder);
        static PrivateBus bus;
        if (!bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        makeFiles();
        QDBusConnection desktop = PrivateBus::desktop();
        const QString service = QStringLiteral("org.freedesktop.FileManager1");
        FakeFileManager fake;
        fake.silent = manager == QLatin1String("silent");
        desktop.registerObject(
            QStringLiteral("/org/freedesktop/FileManager1"), &fake, QDBusConnection::ExportAllSlots);
        if (manager != QLatin1String("none"))
            QVERIFY(desktop.registerService(service));
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        opener.reveal(m_files.filePath(name));
        const QStringList uri{uriOf(m_files.filePath(name))};
        const bool isSelected = !name.contains(QLatin1String("none")) && manager != QLatin1String("none");
        const bool isNowhere = !isSelected && folder.isEmpty();
        if (!folder.isEmpty())
            QTRY_COMPARE(notes(), QStringList{uriOf(QDir::cleanPath(m_files.filePath(folder)))});
        else if (isNowhere)
            QTRY_COMPARE(opened.count(), 1);
        else
            QTRY_COMPARE(fake.shown, uri);
        desktop.unregisterService(service);
        QCOMPARE(fake.shown, isSelected ? uri : QStringList());
        QCOMPARE(opened.count(), isNowhere ? 1 : 0);
        if (isNowhere)
            QCOMPARE(opened.constFirst().at(1).value<Outcome>(), Outcome::Missing);
        QCOMPARE(notes().size(), folder.isEmpty() ? 0 : 1);
    }

private:
    QString noteFile() const { return m_programs.filePath(QStringLiteral("notes")); }
    QStringList notes() const
    {
        QFile file(noteFile());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    static QString uriOf(const QString &path)
    {
        return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    }
    void makeFiles() const
    {
        QDir(m_files.path()).mkdir(QStringLiteral("sub"));
        for (const QString &name : {QStringLiteral("Größe & mehr 100%.txt"), QStringLiteral("secret.txt"),
                 QStringLiteral("a b#c.txt")}) {
            QFile file(m_files.filePath(name));
            if (!file.exists())
                QVERIFY(file.open(QIODevice::WriteOnly) && file.write("x") == 1);
        }
        QFile::setPermissions(m_files.filePath(QStringLiteral("secret.txt")), {});
        const QString loop = m_files.filePath(QStringLiteral("loop"));
        QFile::link(loop, loop);
    }

    QTemporaryDir m_programs;
    QTemporaryDir m_files;
};

QTEST_MAIN(OpenerTest)
#include "tst_opener.moc"
