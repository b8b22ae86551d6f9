#include "base/paths.h"
#include "ksettings.h"
#include "settingsstore.h"
#include "support/temptree.h"

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
        const auto [kind, content, damaged, writable] = zeltest::row<QString, QByteArray, bool, bool>();
        const QString path = KSettings::filePath();
        if (kind == "file"_s || kind == "locked"_s)
            m_folder->write(path, content);
        if (kind == "locked"_s)
            QVERIFY(QFile::setPermissions(path, {}));
        if (kind == "folder"_s)
            QVERIFY(QDir().mkpath(path));
        if (kind == "FIFO"_s)
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        if (kind == "link"_s)
            m_folder->link(path, path);

        KSettings settings;
        settings.beginGroup("plugins"_s);
        settings.beginGroup("zelbox"_s);
        QTEST(settings.value("number"_s, 0).toInt(), "value");
        QCOMPARE(keptAside().size(), damaged ? 1 : 0);
        if (damaged)
            QCOMPARE(m_folder->read(zel::paths::settingsDir() + QLatin1Char('/') + keptAside().constFirst()),
                content);

        settings.setValue("number"_s, 9);
        QCOMPARE(settings.value("number"_s).toInt(), 9);
        QCOMPARE(settings.sync(), writable);
        if (writable)
            QCOMPARE(QFile::permissions(KSettings::filePath()) & 0x0077, QFile::Permissions());
    }

    void valuesSurviveARestart()
    {
        const QString key = "HKEY_CURRENT_USER\\SOFTWARE\\Halvorn\\文档 ü=[x]"_s;
        const QString text = "值\n\"quoted\"; [no section] \\ end"_s;
        {
            KSettings settings;
            settings.setValue(key, text);
            settings.beginGroup("a\\b"_s);
            settings.setValue("c"_s, QStringList{"x, y"_s, QString()});
        }
        zel::platform::releaseSettingsStore();
        KSettings settings;
        QCOMPARE(keptAside(), QStringList());
        QCOMPARE(settings.value(key).toString(), text);
        QCOMPARE(settings.value(QString(key).replace(QLatin1Char('\\'), QLatin1Char('/'))).toString(), text);
        QCOMPARE(settings.value("a/b/c"_s).toStringList().size(), 2);
        settings.beginGroup("a"_s);
        settings.remove("b"_s);
        QVERIFY(!settings.contains("b\\c"_s));
    }

private:
    static QStringList keptAside()
    {
        return QDir(zel::paths::settingsDir()).entryList({"zelbox.conf.damaged-*"_s});
    }

    std::unique_ptr<zeltest::TempTree> m_folder;
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
