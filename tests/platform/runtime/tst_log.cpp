#include "base/logging.h"
#include "base/paths.h"
#include "kdcinfoc.h"
#include "krt/krt.h"
#include "ksettings.h"
#include "kxloggerlite.h"
#include "messagelog.h"
#include "rotatingfile.h"
#include "settingsstore.h"

using zel::platform::RotatingFile;

namespace {

QList<QByteArray> linesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lines = file.readAll().split('\n');
    lines.removeLast(); // after the last newline
    return lines;
}

QStringList g_seenByHost;

void hostHandler(QtMsgType, const QMessageLogContext &, const QString &text)
{
    g_seenByHost.append(text);
}

} // namespace

class LogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        qputenv("XDG_STATE_HOME", QFile::encodeName(m_folder->path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder->path()));
        g_seenByHost.clear();
    }
    void cleanup()
    {
        krt::clear();
        zel::platform::releaseSettingsStore();
    }

    void lineFormat_data()
    {
        const auto row = zeltest::table<QString, QByteArray>("text", "tail");
        row("forged line", "a\n2024-01-01 W c: b\r", "c: a\\n2024-01-01 W c: b\\x0d");
        row("terminal escape, C1, line separator", "\x1b[2J"_s + QChar(0x85) + QChar(0x2028),
            "c: \\x1b[2J\\x85\\x2028");
        // The cut may not fall between the halves of a character.
        row("overlong", QString(8191, QLatin1Char('x')) + "😀😀"_s,
            QByteArray("c: ") + QByteArray(8191, 'x') + "…");
    }
    void lineFormat()
    {
        const auto [text, tail] = zeltest::row<QString, QByteArray>();
        const QDateTime time(QDate(2024, 2, 29), QTime(7, 8, 9, 10));
        QCOMPARE(zel::platform::formatLogLine(time, QtWarningMsg, "c", text, 42),
            QByteArray("2024-02-29T07:08:09.010 42 W ") + tail);
    }

    void toolkitNamesNoDocuments_data()
    {
        const auto row = zeltest::table<QString, QString>("text", "logged");
        row("default", "QIODevice::read (QFile, \"/home/u/a \"b\".odt\"): device not open",
            "QIODevice::read (QFile, \"…\"): device not open");
        row("none", "inotify_add_watch(/home/u/My (old) plan.odt) failed: No space left",
            "inotify_add_watch(…) failed: No space left");
        row("qt.svg", "Cannot open file 'plan.svg', because: it isn't there",
            "Cannot open file '…', because: it isn't there");
        row("kf.service", "Could not find file:///home/u/My plan.odt", "Could not find …");
        row("qt.y", "a/b is not 1/2, and it's 'so'", "a/b is not 1/2, and it's '…'");
        row("qt.qpa.plugin", "Could not load \"xcb\" in \"/usr/lib\"",
            "Could not load \"xcb\" in \"/usr/lib\"");
        row("zel.app", "told of /run/user", "told of /run/user");
    }
    void toolkitNamesNoDocuments()
    {
        QFETCH(QString, text);
        QTEST(zel::platform::withoutNames(QTest::currentDataTag(), text), "logged");
    }

    void fromInitToClear()
    {
        const QtMessageHandler earlier = qInstallMessageHandler(hostHandler);
        KxLoggerLite::writeInfo(L"before");
        initRuntime();
        KxLoggerLite::writeInfo(L"文 kept");
        qCInfo(lcPlatform, "second");
        initRuntime(); // changes the identity only
        krt::clear();
        krt::clear();
        KxLoggerLite::writeInfo(L"after");
        qInstallMessageHandler(earlier);

        QCOMPARE(g_seenByHost, QStringList({"before"_s, "after"_s}));
        const QList<QByteArray> lines = linesOf(logPath());
        QCOMPARE(lines.size(), 2);
        QVERIFY2(lines.at(0).endsWith(" I zel.trace: 文 kept"), lines.at(0).constData());
        QVERIFY2(lines.at(1).endsWith(" I zel.platform: second"), lines.at(1).constData());
        QCOMPARE(QFile::permissions(logPath()) & 0x0077, QFile::Permissions());
    }

    void unusableLogFile()
    {
        QVERIFY(QDir().mkpath(logPath())); // a folder in its place
        QFile captured(m_folder->filePath("stderr"_s));
        QVERIFY(captured.open(QIODevice::ReadWrite));
        const int realStderr = ::dup(STDERR_FILENO);
        ::dup2(captured.handle(), STDERR_FILENO);
        initRuntime();
        qCInfo(lcPlatform, "heard all the same");
        krt::clear();
        ::dup2(realStderr, STDERR_FILENO);
        ::close(realStderr);
        captured.seek(0);
        QVERIFY(captured.readAll().contains("heard all the same"));
    }

    // Threads with files of their own share one, as processes do: no line is torn, none is lost, and only so
    // many files stay.
    void manyWriters_data()
    {
        const auto row = zeltest::table<qint64, int>("limit", "files");
        row("no rotation", qint64(10'000'000), 1);
        row("rotation", qint64(64 * 1024), 1 + RotatingFile::OldFiles);
    }
    void manyWriters()
    {
        const auto [limit, files] = zeltest::row<qint64, int>();
        constexpr int Threads = 6;
        constexpr int Lines = 1000;
        const QString path = m_folder->filePath("shared.log"_s);
        std::atomic_int failures = 0;
        RotatingFile first(path, limit);
        RotatingFile second(path, limit);
        std::vector<std::thread> writers;
        for (int t = 0; t < Threads; ++t) {
            writers.emplace_back([&, t] {
                for (int n = 0; n < Lines; ++n) {
                    const QByteArray line = QByteArray::number(t) + '-' + QByteArray::number(n);
                    failures += (t % 2 ? first : second).append(line.leftJustified(80, '.')) ? 0 : 1;
                }
            });
        }
        for (std::thread &writer : writers)
            writer.join();
        QCOMPARE(failures.load(), 0);

        const QStringList found = QDir(m_folder->path()).entryList({"shared.log*"_s}, QDir::Files);
        QCOMPARE(found.size(), files);
        QSet<QByteArray> distinct;
        int total = 0;
        for (const QString &name : found) {
            for (const QByteArray &line : linesOf(m_folder->filePath(name))) {
                QCOMPARE(line.size(), 80);
                distinct.insert(line);
                ++total;
            }
            QVERIFY(QFileInfo(m_folder->filePath(name)).size() < limit + 81 * Threads);
        }
        QCOMPARE(distinct.size(), total);
        QVERIFY(files == 1 ? total == Threads * Lines : total >= int(limit / 81) * RotatingFile::OldFiles);
    }

    void removedFileComesBack()
    {
        const QString path = m_folder->filePath("gone.log"_s);
        RotatingFile file(path);
        QVERIFY(file.append("one"));
        QVERIFY(QFile::remove(path));
        QVERIFY(file.append("two"));
        QCOMPARE(linesOf(path), QList<QByteArray>{"two"});
    }

    void telemetryOnlyWhenSwitchedOn()
    {
        const QString path = zel::paths::stateDir() + "/telemetry.jsonl"_s;
        const QString name = "zelbox_mainbox_recent_filelist_click"_s;
        KDcInfoC::postGeneralEvent(name);
        QVERIFY(!QFile::exists(path));

        KDcInfoC::setEnabled(true);
        KDcInfoC::postGeneralEvent(name, {{"from\n"_s, "\"文\""_s}});
        const QList<QByteArray> lines = linesOf(path);
        QCOMPARE(lines.size(), 1);
        const QJsonObject event = QJsonDocument::fromJson(lines.constFirst()).object();
        QCOMPARE(event.value("event"_s).toString(), name);
        const QJsonObject expected{{"from\n"_s, "\"文\""_s}};
        QCOMPARE(event.value("parameters"_s).toObject(), expected);
        QCOMPARE(QFile::permissions(path) & 0x0077, QFile::Permissions());

        KDcInfoC::setEnabled(false);
        KDcInfoC::postGeneralEvent(name);
        QCOMPARE(linesOf(path).size(), 1);
    }

private:
    static QString logPath() { return zel::paths::stateDir() + "/logtest.log"_s; }
    static void initRuntime() { krt::init("Halvorn"_s, "Office"_s, "6.0"_s, "logtest"_s); }

    QScopedPointer<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(LogTest)
#include "tst_log.moc"
