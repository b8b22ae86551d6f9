#include "kdocumentopener.h"
#include "support/privatebus.h"
#include "support/temptree.h"

#include <QDBusMessage>

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
        m_programs.writeScript("xdg-open",
            "case $1 in *nobody*) exit 3;; esac; printf '%s\\n' \"$1\" >>\"" + m_programs.bytes("notes")
                + "\"\n");
        qputenv("XDG_DATA_DIRS", m_programs.bytes()); // nothing is recommended for any document
        qputenv("PATH", m_programs.bytes() + ':' + qgetenv("PATH"));
        m_files.make({"sub/", "Größe & mehr 100%.txt=x", "a b#c.txt=x", "nobody.xyz=x", "loop->loop"});
        m_files.write("secret.txt", "x", QFile::WriteOther); // nobody may read it
    }
    void init() { QFile::remove(m_programs.path("notes")); }

    void open_data()
    {
        const auto row = zeltest::table<QString, Outcome>("name", "outcome");
        row("file", "Größe & mehr 100%.txt", Outcome::Opened);
        row("missing", "none.txt", Outcome::Missing);
        row("below a file", "Größe & mehr 100%.txt/x", Outcome::Missing);
        row("no program", "nobody.xyz", Outcome::NoProgram);
        row("link to itself", "loop", Outcome::NotReadable);
        if (::geteuid() != 0) // root may read everything
            row("no permission", "secret.txt", Outcome::NotReadable);
    }
    void open()
    {
        const auto [name, outcome] = zeltest::row<QString, Outcome>();
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        const QString path = m_files.path(name);
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

    void cancelled()
    {
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        const QString other = m_files.path("a b#c.txt");
        opener.open(m_files.path("nobody.xyz"));
        opener.open(other);
        opener.cancel(other);
        QCOMPARE(opened.count(), 1);
        QCOMPARE(opened.takeFirst().at(1).value<Outcome>(), Outcome::Cancelled);
        QTRY_COMPARE(opened.count(), 1); // the other one
        opener.open(other);
        QTRY_COMPARE(opened.count(), 2);
        QTRY_COMPARE(notes(), QStringList{uriOf(other)}); // once
    }

    void openerMayDieMeanwhile()
    {
        auto opener = std::make_unique<KDocumentOpener>();
        QSignalSpy opened(opener.get(), &KDocumentOpener::opened);
        opener->open(m_files.path("none"));
        opener.reset();
        KDocumentOpener other;
        QSignalSpy otherOpened(&other, &KDocumentOpener::opened);
        other.open(m_files.path("none"));
        QTRY_COMPARE(otherOpened.count(), 1);
        QCOMPARE(opened.count(), 0);
    }

    void reveal_data()
    {
        // folder: that is opened instead, below the test's
        const auto row = zeltest::table<QString, QString, QString>("name", "manager", "folder");
        row("no file manager", "a b#c.txt", "none", ".");
        row("selects", "a b#c.txt", "answers", "");
        row("selects a dangling link", "loop", "answers", "");
        row("never answers", "a b#c.txt", "silent", ".");
        row("file is gone", "sub/none.txt", "answers", "sub");
        row("folder is gone", "none/none.txt", "answers", "");
    }
    void reveal()
    {
        const auto [name, manager, folder] = zeltest::row<QString, QString, QString>();
        static PrivateBus bus;
        if (!bus.isRunning())
            QSKIP("no dbus-daemon on this machine");
        QDBusConnection desktop = PrivateBus::desktop();
        const QString service = "org.freedesktop.FileManager1"_s;
        FakeFileManager fake;
        fake.silent = manager == "silent"_s;
        desktop.registerObject("/org/freedesktop/FileManager1"_s, &fake, QDBusConnection::ExportAllSlots);
        if (manager != "none"_s)
            QVERIFY(desktop.registerService(service));
        KDocumentOpener opener;
        QSignalSpy shown(&opener, &KDocumentOpener::folderShown);
        opener.reveal(m_files.path(name));
        const QStringList uri{uriOf(m_files.path(name))};
        const bool isSelected = !name.contains("none"_s) && manager != "none"_s;
        const bool isNowhere = !isSelected && folder.isEmpty();
        if (!folder.isEmpty())
            QTRY_COMPARE(notes(), QStringList{uriOf(QDir::cleanPath(m_files.path(folder)))});
        else if (!isNowhere)
            QTRY_COMPARE(fake.shown, uri);
        QTRY_COMPARE(shown.count(), 1);
        desktop.unregisterService(service);
        QCOMPARE(fake.shown, isSelected ? uri : QStringList());
        QCOMPARE(shown.constFirst().at(1).value<Outcome>(), isNowhere ? Outcome::Missing : Outcome::Opened);
        QCOMPARE(notes().size(), folder.isEmpty() ? 0 : 1);
    }

private:
    QStringList notes() const
    {
        return QString::fromUtf8(m_programs.read("notes")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    static QString uriOf(const QString &path)
    {
        return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    }

    zeltest::TempTree m_programs;
    zeltest::TempTree m_files;
};

QTEST_MAIN(OpenerTest)
#include "tst_opener.moc"
