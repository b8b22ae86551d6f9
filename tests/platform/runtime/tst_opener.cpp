#include "kdocumentopener.h"
#include "privatebus.h"

#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QFileSystemWatcher>
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

public Q_SLOTS:
    void ShowItems(const QStringList &items, const QString &) { shown += items; }
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
            QTRY_COMPARE(notes(), QStringList{QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())});
        else
            QCOMPARE(notes(), QStringList());
    }

    void everyOpenIsAnswered()
    {
        makeFiles();
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        for (int n = 0; n < 20; ++n)
            opener.open(m_files.filePath(QStringLiteral("none%1").arg(n)));
        QTRY_COMPARE(opened.count(), 20);
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

    void reveal()
    {
        PrivateBus bus;
        if (!bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        KDocumentOpener opener;
        const QString path = m_files.filePath(QStringLiteral("a b#c.txt"));
        opener.reveal(path); // nobody shows items on this bus
        QTRY_COMPARE(
            notes(), QStringList{QString::fromLatin1(QUrl::fromLocalFile(m_files.path()).toEncoded())});

        FakeFileManager manager;
        QDBusConnection desktop = PrivateBus::desktop();
        QVERIFY(desktop.registerObject(
            QStringLiteral("/org/freedesktop/FileManager1"), &manager, QDBusConnection::ExportAllSlots));
        QVERIFY(desktop.registerService(QStringLiteral("org.freedesktop.FileManager1")));
        opener.reveal(path);
        QTRY_COMPARE(manager.shown, QStringList{QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded())});
        QCOMPARE(notes().size(), 1);
    }

    void replacement()
    {
        KDocumentOpener *real = KDocumentOpener::instance();
        {
            KDocumentOpener fake;
            KDocumentOpener::setInstance(&fake);
            QCOMPARE(KDocumentOpener::instance(), &fake);
        }
        QCOMPARE(KDocumentOpener::instance(), real); // a fake that died is forgotten
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
    void makeFiles() const
    {
        for (const QString &name : {QStringLiteral("Größe & mehr 100%.txt"), QStringLiteral("secret.txt")}) {
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
