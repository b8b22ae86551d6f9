// Start with the session, on a real tree of files.
#include "base/autostart.h"
#include "base/desktopentry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

bool put(const QString &path, const QString &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

QString content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A user, a system and a program whose path needs quotes.
struct Tree
{
    QTemporaryDir folder;
    zel::AutostartPlaces places{path("user/autostart"), {path("near/autostart"), path("far/autostart")},
        {QStringLiteral("Unity"), QStringLiteral("GNOME")}, path("my $apps/zel 100%/zelbox")};

    Tree()
    {
        put(places.program, QStringLiteral("#!/bin/sh\n"));
        QFile::setPermissions(places.program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString path(const char *relative) const
    {
        return folder.path() + QLatin1Char('/') + QLatin1String(relative);
    }
    QString user() const { return places.userFolder + QLatin1Char('/') + zel::Autostart::fileName(); }
    QString system(int number) const
    {
        return places.systemFolders.at(number) + QLatin1Char('/') + zel::Autostart::fileName();
    }
};

} // namespace

class TestAutostart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rules_data();
    void rules();
    void madeAnewAndTakenAway();
    void tooLargeIsLeftAlone();
    void linkToTheMenu();
    void readOnlyFolder();
    void commandLines_data();
    void commandLines();
};

void TestAutostart::rules_data()
{
    for (const char *column : {"user", "system"})
        QTest::addColumn<QString>(column);
    QTest::addColumn<bool>("before");
    QTest::addColumn<QString>("after"); // the user's file when it was switched over
    const QString entry = QStringLiteral("[Desktop Entry]\nType=Application\nName=Z\nIcon=z\nExec=sh x\n");
    const auto row = [&](const char *name, const char *user, const char *system, bool before,
                         const char *after) {
        const auto whole = [&](const char *keys) {
            return *keys ? QString(entry + QString::fromUtf8(keys).remove(QLatin1Char('.'))) : QString();
        };
        QTest::newRow(name) << whole(user) << whole(system) << before << whole(after);
    };
    row("the system's is overruled", "", ".", true, "Hidden=true\n");
    row("hidden by the user", "Hidden=true\n", ".", false, ".");
    row("hidden by the desktop's tool", "X-GNOME-Autostart-enabled=false\n", "", false,
        "X-GNOME-Autostart-enabled=true\n");
    row("other keys stay", "Hidden=true\n# mine\nX-Delay=3\n\n[Desktop Action a]\nHidden=true\n", "", false,
        "# mine\nX-Delay=3\n\n[Desktop Action a]\nHidden=true\n");
    row("what others wrote is not removed", "X-Delay=3\n", "", true, "X-Delay=3\nHidden=true\n");
    row("the last one counts", "Hidden=false\nHidden=true\n", "", false, ".");
    row("also when it is changed", "Hidden=false\nHidden=false\n", "", true, "Hidden=false\nHidden=true\n");
    row("the group twice", "X-A=b\n[Desktop Entry]\nHidden=true\n", "", false, "X-A=b\n[Desktop Entry]\n");
    row("line ends of another system", "Hidden=true\r\nX-A=b\r\n", "", false, "X-A=b\r\n");
    row("for another desktop", "OnlyShowIn=KDE;\n", ".", false, ".");
    row("not for this one", "NotShowIn=KDE;GNOME;\n", "", false, ".");
    row("the first name decides", "NotShowIn=Unity;\nOnlyShowIn=GNOME;\n", "", false, ".");
    row("for this desktop", "OnlyShowIn=KDE;GNOME;\n", "", true, "OnlyShowIn=KDE;GNOME;\nHidden=true\n");
}

void TestAutostart::rules()
{
    QFETCH(const QString, user);
    QFETCH(const QString, system);
    QFETCH(const bool, before);
    QFETCH(QString, after);
    Tree tree;
    QVERIFY(user.isEmpty() || put(tree.user(), user));
    QVERIFY(system.isEmpty() || put(tree.system(1), system));
    zel::Autostart autostart(tree.places);
    QCOMPARE(autostart.isOn(), before);
    QVERIFY(autostart.setOn(before)); // nothing to do
    QCOMPARE(content(tree.user()), user);
    QVERIFY(autostart.setOn(!before));
    QCOMPARE(autostart.isOn(), !before);
    if (user.isEmpty()) // made here, not changed
        QVERIFY(content(tree.user()).endsWith(QStringLiteral("Hidden=true\n")));
    else
        QCOMPARE(content(tree.user()), after);
    QCOMPARE(content(tree.system(1)), system);
    QVERIFY(autostart.setOn(before));
    QCOMPARE(autostart.isOn(), before);
}

void TestAutostart::madeAnewAndTakenAway()
{
    Tree tree;
    zel::Autostart autostart(tree.places);
    QVERIFY(!autostart.isOn());
    QVERIFY(autostart.setOn(true));
    const zel::DesktopEntry entry(content(tree.user()).toUtf8());
    QCOMPARE(entry.value(QStringLiteral("TryExec")), tree.places.program);
    QVERIFY(entry.value(QStringLiteral("Exec")).endsWith(QStringLiteral(" /from=autostart")));
    QProcess validator;
    validator.start(QStringLiteral("desktop-file-validate"), {tree.user()});
    if (validator.waitForFinished())
        QCOMPARE(validator.readAll(), QByteArray());
    QVERIFY(QFile::rename(tree.places.program, tree.places.program + QLatin1Char('2'))); // uninstalled
    QVERIFY(!autostart.isOn());
    QVERIFY(QFile::rename(tree.places.program + QLatin1Char('2'), tree.places.program));
    QVERIFY(autostart.setOn(false));
    QVERIFY(!QFile::exists(tree.user()));
}

void TestAutostart::tooLargeIsLeftAlone()
{
    Tree tree;
    const QString text =
        QStringLiteral("[Desktop Entry]\nHidden=true\n") + QString(1 << 18, QLatin1Char('\n'));
    QVERIFY(put(tree.user(), text));
    zel::Autostart autostart(tree.places);
    QVERIFY(!autostart.setOn(true));
    QCOMPARE(content(tree.user()), text);
}

void TestAutostart::linkToTheMenu()
{
    Tree tree;
    const QString menu = tree.path("menu.desktop");
    const QString text = QStringLiteral("[Desktop Entry]\nType=Application\nName=Z\nExec=sh\n");
    QVERIFY(put(menu, text));
    QVERIFY(QDir().mkpath(tree.places.userFolder));
    QVERIFY(QFile::link(menu, tree.user()));
    zel::Autostart autostart(tree.places);
    QVERIFY(autostart.isOn());
    QVERIFY(autostart.setOn(false));
    QCOMPARE(content(menu), text);
}

void TestAutostart::readOnlyFolder()
{
    Tree tree;
    QVERIFY(put(tree.places.userFolder, QString())); // a file in the folder's place
    zel::Autostart autostart(tree.places);
    QVERIFY(!autostart.setOn(true));
    QVERIFY(!autostart.isOn());
}

void TestAutostart::commandLines_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("line");
    QTest::newRow("plain") << "/usr/bin/zelbox"
                           << "/usr/bin/zelbox /from=autostart";
    QTest::newRow("blank") << "/my apps/z"
                           << "\"/my apps/z\" /from=autostart";
    QTest::newRow("field code") << "/100%/z"
                                << "/100%%/z /from=autostart";
    QTest::newRow("marks") << "/a$b`c\"d\\e/z"
                           << "\"/a\\$b\\`c\\\"d\\\\e/z\" /from=autostart";
}

void TestAutostart::commandLines()
{
    QFETCH(const QString, program);
    QFETCH(const QString, line);
    QCOMPARE(zel::DesktopEntry::execLine(program, {QStringLiteral("/from=autostart")}), line);
    QCOMPARE(zel::DesktopEntry::programOf(line), program);
    QCOMPARE(zel::DesktopEntry::programOf(QStringLiteral("\"/open ended")), QString());
    QCOMPARE(zel::DesktopEntry::execLine(QStringLiteral("/a=b/z"), {}), QString());
    const QByteArray mixed = "[Desktop Entry]\nName[fr]=Bo\xeete\n"; // Latin-1, as some old files have it
    zel::DesktopEntry entry(QByteArray("\xef\xbb\xbf") + mixed);
    QCOMPARE(entry.toText(), mixed);
    entry.setValue(QStringLiteral("Exec"), line); // escaped once more in the file
    QCOMPARE(zel::DesktopEntry(entry.toText()).value(QStringLiteral("Exec")), line);
}

QTEST_GUILESS_MAIN(TestAutostart)
#include "tst_autostart.moc"
