#include "base/paths.h"
#include "ksettings.h"
#include "settingsstore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

using Setup = std::function<void(const QString &path)>;
Q_DECLARE_METATYPE(Setup)

namespace {

Setup writing(const QByteArray &bytes)
{
    return [bytes](const QString &path) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    };
}

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
        m_folder.reset(new QTemporaryDir);
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder->path()));
    }
    void cleanup() { zel::platform::releaseSettingsStore(); }

    void firstUse_data()
    {
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<bool>("damaged");
        QTest::addColumn<bool>("writable");
        QTest::addColumn<int>("value");

        const QByteArray good("[plugins]\nzelbox\\number=5\n");
        QTest::newRow("no file") << Setup([](const QString &) {}) << false << true << 0;
        QTest::newRow("comments, CRLF")
            << writing("; a\r\n; b\r\n\r\n" + QByteArray(good).replace("\n", "\r\n")) << false << true << 5;
        QTest::newRow("garbage") << writing("\x89PNG\r\n\x1a\nrubbish") << true << true << 0;
        QTest::newRow("NUL bytes after a crash")
            << writing(good + QByteArray(512, '\0')) << true << true << 0;
        QTest::newRow("not UTF-8") << writing(good + "zelbox\\name=\xe9t\xe9\n") << true << true << 0;
        QTest::newRow("cut in a section") << writing(good + "[Applicat") << true << true << 0;
        QTest::newRow("line without a key") << writing(good + "=7\n") << true << true << 0;
        QTest::newRow("too large") << writing(good + QByteArray(9 * 1024 * 1024, ';')) << true << true << 0;
        QTest::newRow("folder in its place")
            << Setup([](const QString &path) { QVERIFY(QDir().mkpath(path)); }) << false << false << 0;
        QTest::newRow("FIFO in its place") << Setup([](const QString &path) {
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        }) << false << false << 0;
        QTest::newRow("link to itself")
            << Setup([](const QString &path) { QVERIFY(QFile::link(path, path)); }) << false << false << 0;
        if (::geteuid() != 0) { // root may read everything
            QTest::newRow("no permission") << Setup([good](const QString &path) {
                writing(good)(path);
                QVERIFY(QFile::setPermissions(path, {}));
            }) << false << false << 0;
        }
    }
    void firstUse()
    {
        QFETCH(Setup, setup);
        QFETCH(bool, damaged);
        QFETCH(bool, writable);
        setup(KSettings::filePath());
        const QByteArray before = contents();

        KSettings settings;
        settings.beginGroup(QStringLiteral("plugins"));
        settings.beginGroup(QStringLiteral("zelbox"));
        QTEST(settings.value(QStringLiteral("number"), 0).toInt(), "value");
        QCOMPARE(keptAside().size(), damaged ? 1 : 0);
        if (damaged) {
            QFile kept(zel::paths::settingsDir() + QLatin1Char('/') + keptAside().constFirst());
            QVERIFY(kept.open(QIODevice::ReadOnly));
            QCOMPARE(kept.readAll(), before);
        }

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
    static QByteArray contents()
    {
        QFile file(KSettings::filePath());
        return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
