#include "base/paths.h"
#include "ksettings.h"
#include "settingsstore.h"
#include "support/table.h"
#include "support/temptree.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QStringList keptAside()
{
    return QDir(zel::paths::settingsDir()).entryList({QStringLiteral("zelbox.conf.damaged-*")});
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every row has a settings folder of its own, which also proves that the store follows the XDG path.
    void init()
    {
        m_folder = std::make_unique<zeltest::TempTree>();
        qputenv("XDG_CONFIG_HOME", m_folder->bytes());
    }
    void cleanup() { zel::platform::releaseSettingsStore(); }

    void firstUse_data()
    {
        const auto row = zeltest::table<QString, QByteArray, bool, bool, int>(
            "kind", "content", "damaged", "writable", "value");
        const QByteArray good("[plugins]\nzelbox\\number=5\n");
        row("no file", "none", {}, false, true, 0);
        row("comments, CRLF", "file", "; a\r\n; b\r\n\r\n[plugins]\r\nzelbox\\number=5\r\n", false, true, 5);
        row("garbage", "file", "\x89PNG\r\n\x1a\nrubbish", true, true, 0);
        row("NUL bytes after a crash", "file", good + QByteArray(512, '\0'), true, true, 0);
        row("not UTF-8", "file", good + "zelbox\\name=\xe9t\xe9\n", true, true, 0);
        row("cut in a section", "file", good + "[Applicat", true, true, 0);
        row("line without a key", "file", good + "=7\n", true, true, 0);
        row("too large", "file", good + QByteArray(9 * 1024 * 1024, ';'), true, true, 0);
        row("folder in its place", "folder", {}, false, false, 0);
        row("FIFO in its place", "FIFO", {}, false, false, 0);
        row("link to itself", "link", {}, false, false, 0);
        if (::geteuid() != 0) // root may read everything
            row("no permission", "locked", good, false, false, 0);
    }
    void firstUse()
    {
        QFETCH(QString, kind);
        QFETCH(QByteArray, content);
        QFETCH(bool, damaged);
        QFETCH(bool, writable);
        const QString path = KSettings::filePath();
        if (kind == QLatin1String("file") || kind == QLatin1String("locked"))
            m_folder->write(path, content);
        if (kind == QLatin1String("locked"))
            QVERIFY(QFile::setPermissions(path, {}));
        if (kind == QLatin1String("folder"))
            QVERIFY(QDir().mkpath(path));
        if (kind == QLatin1String("FIFO"))
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        if (kind == QLatin1String("link"))
            m_folder->link(path, path);

        KSettings settings;
        settings.beginGroup(QStringLiteral("plugins"));
        settings.beginGroup(QStringLiteral("zelbox"));
        QTEST(settings.value(QStringLiteral("number"), 0).toInt(), "value");
        QCOMPARE(keptAside().size(), damaged ? 1 : 0);
        if (damaged)
            QCOMPARE(m_folder->read(zel::paths::settingsDir() + QLatin1Char('/') + keptAside().constFirst()),
                content);

        settings.setValue(QStringLiteral("number"), 9);
        QCOMPARE(settings.value(QStringLiteral("number")).toInt(), 9);
        QCOMPARE(settings.sync(), writable);
        if (writable)
            QCOMPARE(QFile::permissions(KSettings::filePath()) & 0x0077, QFile::Permissions());
    }

    void valuesSurviveARestart()
    {
        const QString key = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\Halvorn\\文档 ü=[x]");
        const QString text = QStringLiteral("值\n\"quoted\"; [no section] \\ end");
        {
            KSettings settings;
            settings.setValue(key, text);
            settings.beginGroup(QStringLiteral("a\\b"));
            settings.setValue(QStringLiteral("c"), QStringList{QStringLiteral("x, y"), QString()});
        }
        zel::platform::releaseSettingsStore();
        KSettings settings;
        QCOMPARE(keptAside(), QStringList());
        QCOMPARE(settings.value(key).toString(), text);
        QCOMPARE(settings.value(QString(key).replace(QLatin1Char('\\'), QLatin1Char('/'))).toString(), text);
        QCOMPARE(settings.value(QStringLiteral("a/b/c")).toStringList().size(), 2);
        settings.beginGroup(QStringLiteral("a"));
        settings.remove(QStringLiteral("b"));
        QVERIFY(!settings.contains(QStringLiteral("b\\c")));
    }

private:
    std::unique_ptr<zeltest::TempTree> m_folder;
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
