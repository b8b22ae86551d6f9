// Start with the session, on a real tree of files.
#include "base/autostart.h"
#include "base/desktopentry.h"
#include "support/temptree.h"

class TestAutostart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rules_data()
    {
        // after: the user's file when it was switched over
        const auto add =
            zeltest::table<QByteArray, QByteArray, bool, QByteArray>("user", "system", "before", "after");
        const QByteArray entry = "[Desktop Entry]\nType=Application\nName=Z\nIcon=z\nExec=sh x\n";
        const auto whole = [&](QByteArray keys) {
            return keys.isEmpty() ? keys : entry + keys.replace('.', "");
        };
        const auto row = [&](const char *name, const char *user, const char *system, bool before,
                             const char *after) {
            add(name, whole(user), whole(system), before, whole(after));
        };
        row("the system's is overruled", "", ".", true, "Hidden=true\n");
        row("hidden by the user", "Hidden=true\n", ".", false, ".");
        row("hidden by the desktop's tool", "X-GNOME-Autostart-enabled=false\n", "", false,
            "X-GNOME-Autostart-enabled=true\n");
        row("other keys stay", "Hidden=true\n# mine\nX-Delay=3\n\n[Desktop Action a]\nHidden=true\n", "",
            false, "# mine\nX-Delay=3\n\n[Desktop Action a]\nHidden=true\n");
        row("what others wrote is not removed", "X-Delay=3\n", "", true, "X-Delay=3\nHidden=true\n");
        row("the last one counts", "Hidden=false\nHidden=true\n", "", false, ".");
        row("also when it is changed", "Hidden=false\nHidden=false\n", "", true,
            "Hidden=false\nHidden=true\n");
        row("the group twice", "X-A=b\n[Desktop Entry]\nHidden=true\n", "", false,
            "X-A=b\n[Desktop Entry]\n");
        row("line ends of another system", "Hidden=true\r\nX-A=b\r\n", "", false, "X-A=b\r\n");
        row("for another desktop", "OnlyShowIn=KDE;\n", ".", false, ".");
        row("not for this one", "NotShowIn=KDE;GNOME;\n", "", false, ".");
        row("the first name decides", "NotShowIn=Unity;\nOnlyShowIn=GNOME;\n", "", false, ".");
        row("for this desktop", "OnlyShowIn=KDE;GNOME;\n", "", true, "OnlyShowIn=KDE;GNOME;\nHidden=true\n");
    }
    void rules()
    {
        const auto [user, system, before] = zeltest::row<QByteArray, QByteArray, bool>();
        Tree tree;
        if (!user.isEmpty())
            tree.write(tree.user(), user);
        if (!system.isEmpty())
            tree.write(tree.system(1), system);
        zel::Autostart autostart(tree.places);
        QCOMPARE(autostart.isOn(), before);
        QVERIFY(autostart.setOn(before)); // nothing to do
        QCOMPARE(tree.read(tree.user()), user);
        QVERIFY(autostart.setOn(!before));
        QCOMPARE(autostart.isOn(), !before);
        if (user.isEmpty()) // made here, not changed
            QVERIFY(tree.read(tree.user()).endsWith("Hidden=true\n"));
        else
            QTEST(tree.read(tree.user()), "after");
        QCOMPARE(tree.read(tree.system(1)), system);
        QVERIFY(autostart.setOn(before));
        QCOMPARE(autostart.isOn(), before);
    }

    void madeAnewAndTakenAway()
    {
        Tree tree;
        zel::Autostart autostart(tree.places);
        QVERIFY(!autostart.isOn());
        QVERIFY(autostart.setOn(true));
        const zel::DesktopEntry entry(tree.read(tree.user()));
        QCOMPARE(entry.value("TryExec"_s), tree.places.program);
        QVERIFY(entry.value("Exec"_s).endsWith(" /from=autostart"_s));
        QProcess validator;
        validator.start("desktop-file-validate"_s, {tree.user()});
        if (validator.waitForFinished())
            QCOMPARE(validator.readAll(), QByteArray());
        QVERIFY(QFile::remove(tree.places.program)); // uninstalled
        QVERIFY(!autostart.isOn());
        tree.writeScript(tree.places.program, {});
        QVERIFY(autostart.setOn(false));
        QVERIFY(!QFile::exists(tree.user()));
    }

    void tooLargeIsLeftAlone()
    {
        Tree tree;
        const QByteArray text = "[Desktop Entry]\nHidden=true\n" + QByteArray(1 << 18, '\n');
        tree.write(tree.user(), text);
        zel::Autostart autostart(tree.places);
        QVERIFY(!autostart.setOn(true));
        QCOMPARE(tree.read(tree.user()), text);
    }

    void linkToTheMenu()
    {
        Tree tree;
        const QByteArray text = "[Desktop Entry]\nType=Application\nName=Z\nExec=sh\n";
        tree.write("menu.desktop", text);
        tree.link("menu.desktop", tree.user());
        zel::Autostart autostart(tree.places);
        QVERIFY(autostart.isOn());
        QVERIFY(autostart.setOn(false));
        QCOMPARE(tree.read("menu.desktop"), text);
    }

    void readOnlyFolder()
    {
        Tree tree;
        tree.write(tree.places.userFolder); // a file in the folder's place
        zel::Autostart autostart(tree.places);
        QVERIFY(!autostart.setOn(true));
        QVERIFY(!autostart.isOn());
    }

    void commandLines_data()
    {
        const auto row = zeltest::table<QString, QString>("program", "line");
        row("plain", "/usr/bin/zelbox", "/usr/bin/zelbox /from=autostart");
        row("blank", "/my apps/z", "\"/my apps/z\" /from=autostart");
        row("field code", "/100%/z", "/100%%/z /from=autostart");
        row("marks", "/a$b`c\"d\\e/z", "\"/a\\$b\\`c\\\"d\\\\e/z\" /from=autostart");
    }
    void commandLines()
    {
        const auto [program, line] = zeltest::row<QString, QString>();
        QCOMPARE(zel::DesktopEntry::execLine(program, {"/from=autostart"_s}), line);
        QCOMPARE(zel::DesktopEntry::programOf(line), program);
        QCOMPARE(zel::DesktopEntry::programOf("\"/open ended"_s), QString());
        QCOMPARE(zel::DesktopEntry::execLine("/a=b/z"_s, {}), QString());
        const QByteArray mixed = "[Desktop Entry]\nName[fr]=Bo\xeete\n"; // Latin-1, as some old files have it
        zel::DesktopEntry entry(QByteArray("\xef\xbb\xbf") + mixed);
        QCOMPARE(entry.toText(), mixed);
        entry.setValue("Exec"_s, line); // escaped once more in the file
        QCOMPARE(zel::DesktopEntry(entry.toText()).value("Exec"_s), line);
    }

private:
    /// A user, a system and a program whose path needs quotes.
    struct Tree : zeltest::TempTree
    {
        zel::AutostartPlaces places{path("user/autostart"), {path("near/autostart"), path("far/autostart")},
            {"Unity"_s, "GNOME"_s}, path("my $apps/zel 100%/zelbox")};

        Tree() { writeScript(places.program, {}); }
        QString user() const { return places.userFolder + QLatin1Char('/') + zel::Autostart::fileName(); }
        QString system(int number) const
        {
            return places.systemFolders.at(number) + QLatin1Char('/') + zel::Autostart::fileName();
        }
    };
};

QTEST_GUILESS_MAIN(TestAutostart)
#include "tst_autostart.moc"
