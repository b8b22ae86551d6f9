#include "base/posix/uniquefd.h"
#include "kdocumentopener.h"
#include "support/privatebus.h"
#include "support/temptree.h"

using Outcome = KDocumentOpener::Outcome;

// Looks at desktop entries and associations of the test's own, and really starts a program.
class ProgramsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_bus.isRunning()); // nobody may start a bus for the programs
        m_data.link("/usr/share/mime", "mime");
        const QByteArray data = m_data.bytes();
        qputenv("XDG_DATA_DIRS", data);
        qputenv("XDG_DATA_HOME", data + "/home");
        qputenv("XDG_CONFIG_HOME", data + "/config");
        qputenv("XDG_CURRENT_DESKTOP", "Here");
        qputenv("DESKTOP_STARTUP_ID", "of the box");
        // The second line says what the program was started with.
        for (const char *program : {"viewer", "zelbox"})
            m_data.writeScript(program,
                "printf '%s|%s' \"$1\" \"$DESKTOP_STARTUP_ID\" >\"$0.new\" && mv \"$0.new\" \"$0.ran\"\n");
        const QByteArray viewer = data + "/viewer %f";
        writeEntry("viewer", viewer, "Icon=view\n");
        writeEntry("editor", data + "/viewer %U", "Icon=/pictures/edit.png\n");
        writeEntry("hidden", viewer, "NoDisplay=true\n");
        writeEntry("elsewhere", viewer, "OnlyShowIn=Elsewhere;\n");
        writeEntry("gone", "/nowhere/program %f", "");
        writeEntry("box", data + "/zelbox %F", "");
        m_data.make({"applications/mimeinfo.cache=[MIME Cache]\ntext/plain=gone.desktop;hidden.desktop;"
                     "elsewhere.desktop;box.desktop;viewer.desktop;editor.desktop;\n",
            "config/mimeapps.list=[Default Applications]\ntext/plain=editor.desktop\n",
            "letter ü&%1.txt=text", "README=just a text\n"});
    }

    void findPrograms_data()
    {
        const auto row = zeltest::table<QString, QStringList>("name", "ids");
        const QStringList forTexts{"editor.desktop"_s, "viewer.desktop"_s};
        row("default first", "letter ü&%1.txt", forTexts);
        row("type by content", "README", forTexts);
        row("for a wider type", "code.cpp", forTexts);
        row("nothing for it", "a.pdf", {});
        row("folder", "applications", {});
    }
    void findPrograms()
    {
        const auto [name, ids] = zeltest::row<QString, QStringList>();
        KDocumentOpener opener;
        QSignalSpy found(&opener, &KDocumentOpener::programsFound);
        opener.findPrograms(m_data.path(name));
        QCOMPARE(found.count(), 0);
        QTRY_COMPARE(found.count(), 1);
        QCOMPARE(found.constFirst().at(0).toString(), m_data.path(name));
        const auto programs = found.constFirst().at(1).value<KProgramList>();
        QCOMPARE(zeltest::joined(programs, &KProgram::id), ids.join(QLatin1Char(' ')));
        if (ids.isEmpty())
            return;
        const KProgram editor{ids.at(0), "Program editor"_s, "/pictures/edit.png"_s, true};
        const KProgram viewer{ids.at(1), "Program viewer"_s, "view"_s, false};
        QCOMPARE(programs, KProgramList({editor, viewer}));
    }

    // Who reads it waits until the lease ends, as on a mount that does not answer; nobody else may.
    void heldDocument()
    {
        const QString path = m_data.write("held", "text");
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
        const auto row = zeltest::table<QString, QString, Outcome>("name", "id", "outcome");
        const QString text = "letter ü&%1.txt"_s;
        row("started", text, "viewer.desktop", Outcome::Opened);
        row("takes several", text, "editor.desktop", Outcome::Opened);
        row("recommended", text, "", Outcome::Opened);
        row("unknown program", text, "other.desktop", Outcome::NoProgram);
        row("program is gone", text, "gone.desktop", Outcome::NoProgram);
        row("no document", "nothing.txt", "viewer.desktop", Outcome::Missing);
    }
    void openWith()
    {
        const auto [name, id, outcome] = zeltest::row<QString, QString, Outcome>();
        const QString note = m_data.path("viewer.ran");
        QFile::remove(note);
        KDocumentOpener opener;
        QSignalSpy opened(&opener, &KDocumentOpener::opened);
        if (id.isEmpty())
            opener.open(m_data.path(name));
        else
            opener.openWith(m_data.path(name), id);
        QTRY_COMPARE(opened.count(), 1);
        QCOMPARE(opened.constFirst().at(0).toString(), m_data.path(name));
        QCOMPARE(opened.constFirst().at(1).value<Outcome>(), outcome);
        if (outcome != Outcome::Opened)
            return;
        QTRY_VERIFY(QFile::exists(note));
        const QString ran = QString::fromUtf8(m_data.read(note));
        const QString document = ran.section(QLatin1Char('|'), 0, 0);
        const QUrl address(document);
        QCOMPARE(address.isLocalFile() ? address.toLocalFile() : document, m_data.path(name));
        QVERIFY(!ran.endsWith("of the box"_s));
    }

private:
    void writeEntry(const QByteArray &name, const QByteArray &exec, const QByteArray &more) const
    {
        m_data.write("applications/%1.desktop"_s.arg(QLatin1String(name)),
            "[Desktop Entry]\nType=Application\nName=Program " + name + "\nExec=" + exec + '\n' + more);
    }

    PrivateBus m_bus;
    zeltest::TempTree m_data;
};

QTEST_GUILESS_MAIN(ProgramsTest)
#include "tst_programs.moc"
