#include "base/posix/uniquefd.h"
#include "kdocumentopener.h"
#include "privatebus.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

#include <csignal>
#include <fcntl.h>

using Outcome = KDocumentOpener::Outcome;

// Looks at desktop entries and associations of the test's own, and really starts a program.
class ProgramsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_bus.isRunning()); // nobody may start a bus for the programs
        QVERIFY(QDir().mkpath(filePath(QStringLiteral("applications"))));
        QVERIFY(QFile::link(QStringLiteral("/usr/share/mime"), filePath(QStringLiteral("mime"))));
        const QByteArray data = QFile::encodeName(m_data.path());
        qputenv("XDG_DATA_DIRS", data);
        qputenv("XDG_DATA_HOME", data + "/home");
        qputenv("XDG_CONFIG_HOME", data + "/config");
        qputenv("XDG_CURRENT_DESKTOP", "Here");
        qputenv("DESKTOP_STARTUP_ID", "of the box");
        // The second line says what the program was started with.
        for (const char *program : {"viewer", "zelbox"}) {
            write(QLatin1String(program),
                "#!/bin/sh\nprintf '%s|%s' \"$1\" \"$DESKTOP_STARTUP_ID\" >\"$0.new\" && mv \"$0.new\" "
                "\"$0.ran\"\n");
            QVERIFY(
                QFile::setPermissions(filePath(QLatin1String(program)), QFile::ReadOwner | QFile::ExeOwner));
        }
        const QByteArray viewer = data + "/viewer %f";
        writeEntry("viewer", viewer, "Icon=view\n");
        writeEntry("editor", data + "/viewer %U", "Icon=/pictures/edit.png\n");
        writeEntry("hidden", viewer, "NoDisplay=true\n");
        writeEntry("elsewhere", viewer, "OnlyShowIn=Elsewhere;\n");
        writeEntry("gone", "/nowhere/program %f", "");
        writeEntry("box", data + "/zelbox %F", "");
        write(QStringLiteral("applications/mimeinfo.cache"),
            "[MIME "
            "Cache]\ntext/plain=gone.desktop;hidden.desktop;elsewhere.desktop;box.desktop;viewer.desktop;"
            "editor.desktop;\n");
        write(QStringLiteral("config/mimeapps.list"), "[Default Applications]\ntext/plain=editor.desktop\n");
        write(QStringLiteral("letter ü&%1.txt"), "text");
        write(QStringLiteral("README"), "just a text\n");
    }

    void findPrograms_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("ids");
        const QStringList forTexts{QStringLiteral("editor.desktop"), QStringLiteral("viewer.desktop")};
        QTest::newRow("default first") << "letter ü&%1.txt" << forTexts;
        QTest::newRow("type by content") << "README" << forTexts;
        QTest::newRow("for a wider type") << "code.cpp" << forTexts;
        QTest::newRow("nothing for it") << "a.pdf" << QStringList();
        QTest::newRow("folder") << "applications" << QStringList();
    }
    void findPrograms()
    {
        QFETCH(QString, name);
        QFETCH(QStringList, ids);
        KDocumentOpener opener;
        QSignalSpy found(&opener, &KDocumentOpener::programsFound);
        opener.findPrograms(filePath(name));
        QCOMPARE(found.count(), 0);
        QTRY_COMPARE(found.count(), 1);
        QCOMPARE(found.constFirst().at(0).toString(), filePath(name));
        const auto programs = found.constFirst().at(1).value<KProgramList>();
        QStringList foundIds;
        for (const KProgram &program : programs)
            foundIds.append(program.id);
        QCOMPARE(foundIds, ids);
        if (ids.isEmpty())
            return;
        const KProgram editor{
            ids.at(0), QStringLiteral("Program editor"), QStringLiteral("/pictures/edit.png"), true};
        const KProgram viewer{ids.at(1), QStringLiteral("Program viewer"), QStringLiteral("view"), false};
        QVERIFY(programs == KProgramList({editor, viewer}));
    }

    // Who reads it waits until the lease ends, as on a mount that does not answer; nobody else may.
    void heldDocument()
    {
        const QString path = filePath(QStringLiteral("held"));
        write(QStringLiteral("held"), "text");
        std::signal(SIGIO, SIG_IGN);
        const zel::posix::UniqueFd fd(::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC));
        if (::fcntl(fd.get(), F_SETLEASE, F_WRLCK) != 0)
            QSKIP("no leases on this file system");
        KDocumentOpener opener;
        QSignalSpy found(&opener, &KDocumentOpener::programsFound);
        opener.findPrograms(path);
        QTRY_COMPARE(found.count(), 1);
    }

    void openWith_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("id");
        QTest::addColumn<Outcome>("outcome");
        const QString text = QStringLiteral("letter ü&%1.txt");
        QTest::newRow("started") << text << "viewer.desktop" << Outcome::Opened;
        QTest::newRow("takes several") << text << "editor.desktop" << Outcome::Opened;
        QTest::newRow("unknown program") << text << "other.desktop" << Outcome::NoProgram;
        QTest::newRow("program is gone") << text << "gone.desktop" << Outcome::NoProgram;
        QTest::newRow("no document") << "nothing.txt"
                                     << "viewer.desktop" << Outcome::Missing;
    }
    void openWith()
    {
        QFETCH(QString, name);
        QFETCH(QString, id);
        QFETCH(Outcome, outcome);
        const QString note = filePath(QStringLiteral("viewer.ran"));
        QFile::remove(note);
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        opener.openWith(filePath(name), id);
        QTRY_COMPARE(opened.count(), 1);
        QCOMPARE(opened.constFirst().at(0).toString(), filePath(name));
        QCOMPARE(opened.constFirst().at(1).value<Outcome>(), outcome);
        if (outcome != Outcome::Opened)
            return;
        QTRY_VERIFY(QFile::exists(note));
        QFile file(note);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString ran = QString::fromUtf8(file.readAll());
        const QString document = ran.section(QLatin1Char('|'), 0, 0);
        const QUrl address(document);
        QCOMPARE(address.isLocalFile() ? address.toLocalFile() : document, filePath(name));
        QVERIFY(!ran.endsWith(QLatin1String("of the box")));
    }

private:
    QString filePath(const QString &name) const { return m_data.filePath(name); }
    void write(const QString &name, const QByteArray &text) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(filePath(name)).path()));
        QFile file(filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), text.size());
    }
    void writeEntry(const QByteArray &name, const QByteArray &exec, const QByteArray &more) const
    {
        write(QStringLiteral("applications/") + QString::fromLatin1(name) + QStringLiteral(".desktop"),
            "[Desktop Entry]\nType=Application\nName=Program " + name + "\nExec=" + exec + '\n' + more);
    }

    PrivateBus m_bus;
    QTemporaryDir m_data;
};

QTEST_GUILESS_MAIN(ProgramsTest)
#include "tst_programs.moc"
