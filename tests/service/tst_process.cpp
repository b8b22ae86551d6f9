#include "support/wireclient.h"

using namespace zel;
using namespace zel::posix;
using namespace std::chrono_literals;

class TestProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->path()));
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder->filePath("data"_s)));
    }

    void options_data()
    {
        const auto row = zeltest::table<QByteArray, int, QString>("arguments", "code", "output");
        row("help", QByteArray("--help"), 0, "^Usage: .*--exit-with-last-client");
        row("version", QByteArray("--version"), 0, "^zelcloud \\d+\\.\\d+\\.\\d+\n$");
        row("unknown", QByteArray("--xyz"), 2, "xyz");
        row("descriptor is no number", QByteArray("--ready-fd x"), 2, "Wrong arguments");
        row("closed descriptor", QByteArray("--ready-fd 77"), 1, "not open");
    }

    void options()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QString, output);
        const Process process = start(arguments.constData());
        QVERIFY(hasEnded(*process));
        QTEST(process->exitCode(), "code");
        const QByteArray text = process->readAllStandardOutput() + process->readAllStandardError();
        const QRegularExpression expected(output, QRegularExpression::DotMatchesEverythingOption);
        QVERIFY2(expected.match(QString::fromUtf8(text)).hasMatch(), text.constData());
        QVERIFY(!QFileInfo::exists(socketPath()));
    }

    void twoAtOnce()
    {
        std::vector<Process> starts;
        for (int i = 0; i < 4; ++i)
            starts.push_back(start());
        QTRY_VERIFY_WITH_TIMEOUT(client(), patience);
        const auto running = [&starts] {
            return std::count_if(starts.begin(), starts.end(),
                [](const Process &process) { return process->state() != QProcess::NotRunning; });
        };
        QTRY_COMPARE_WITH_TIMEOUT(running(), 1, patience);
        QVERIFY(client());
        for (const Process &process : starts) {
            process->terminate();
            QVERIFY(hasEnded(*process));
            QCOMPARE(process->exitCode(), 0);
        }
    }

    // Two runtime folders do not make two services of one home.
    void otherRuntimeFolder()
    {
        const Process process = startReady();
        QVERIFY(process);
        QVERIFY(QDir().mkdir(m_folder->filePath("other"_s)));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder->filePath("other"_s)));
        const Process second = start();
        QVERIFY(hasEnded(*second));
        QCOMPARE(second->exitCode(), 1);
        QVERIFY(second->readAllStandardError().contains("another service"));
        process->terminate();
        const Process third = startReady(); // waits for what has not quite ended
        QVERIFY(third);
        QVERIFY(hasEnded(*process));
        third->terminate();
        QVERIFY(hasEnded(*third));
    }

    void endsOnSignal_data()
    {
        const auto row = zeltest::table<int>("number");
        row("SIGTERM", SIGTERM);
        row("SIGINT", SIGINT);
        row("SIGHUP", SIGHUP);
    }

    void endsOnSignal()
    {
        QFETCH(int, number);
        const Process process = startReady();
        QVERIFY(process);
        const auto asking = client();
        const UniqueFd silent =
            connectUnixUntil(QFile::encodeName(socketPath()).toStdString(), deadlineIn(5s));
        QVERIFY(asking && silent);
        ::kill(pid_t(process->processId()), number);
        QVERIFY(hasEnded(*process));
        QCOMPARE(process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(process->exitCode(), 0);
        QVERIFY(!QFileInfo::exists(socketPath()));
    }

    void leavesWithTheLastClient()
    {
        const Process process = startReady("--exit-with-last-client");
        QVERIFY(process);
        auto last = client();
        QVERIFY(last);
        QVERIFY2(!process->waitForFinished(6000), "stays as long as somebody is connected");
        last.reset();
        QVERIFY(hasEnded(*process));
        QCOMPARE(process->exitCode(), 0);
        QVERIFY(!QFileInfo::exists(socketPath()));
    }

    // The socket belongs to the service manager: the service takes its connections and leaves it where it is.
    void activatedByItsSocket()
    {
        QVERIFY(QDir().mkdir(m_folder->filePath("zelbox"_s)));
        for (int round = 0; round < 2; ++round) {
            Process process(new QProcess);
            process->start(QFile::decodeName(qgetenv("ZEL_ACTIVATE")),
                {socketPath(), QFile::decodeName(qgetenv("ZEL_CLOUD"))});
            // Connects before the service runs, as the one does that it is started for.
            UniqueFd early;
            QTRY_VERIFY(early = connectUnixNow(QFile::encodeName(socketPath()).toStdString()));
            QVERIFY(waitForReady(*process));
            QVERIFY(client());
            const Process second = start();
            QVERIFY(hasEnded(*second));
            QCOMPARE(second->exitCode(), 0);
            QVERIFY(second->readAllStandardError().contains("runs already"));
            QVERIFY2(client(), "the other start left the socket alone");
            process->terminate();
            QVERIFY(hasEnded(*process));
            QCOMPARE(process->exitCode(), 0);
            QVERIFY(QFileInfo::exists(socketPath()));
        }
        const Process byHand = startReady();
        QVERIFY(byHand);
        QVERIFY(client());
        byHand->terminate();
        QVERIFY(hasEnded(*byHand));
    }

private:
    static constexpr int patience = 30000;
    static QStringList words(const char *text)
    {
        return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }
    // The event loop may have noticed the end already.
    static bool hasEnded(QProcess &process)
    {
        return process.state() == QProcess::NotRunning || process.waitForFinished(patience);
    }

    using Process = std::unique_ptr<QProcess>;
    Process start(const char *arguments = "")
    {
        Process process(new QProcess);
        process->start(QFile::decodeName(qgetenv("ZEL_CLOUD")), words(arguments));
        return process;
    }

    // The line that it logs when clients can connect is what we wait for.
    Process startReady(const char *arguments = "")
    {
        Process process = start(arguments);
        return waitForReady(*process) ? std::move(process) : nullptr;
    }

    bool waitForReady(QProcess &process)
    {
        QByteArray log;
        process.setReadChannel(QProcess::StandardError);
        while (!log.contains("ready") && process.waitForReadyRead(patience))
            log += process.readAllStandardError();
        return log.contains("ready");
    }

    QString socketPath() const { return m_folder->filePath("zelbox/cloud.sock"_s); }
    /// One that has passed the handshake; null when it could not.
    std::unique_ptr<WireClient> client()
    {
        auto made = std::make_unique<WireClient>(QFile::encodeName(socketPath()).toStdString());
        return made->isOpen() && made->greet() ? std::move(made) : nullptr;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TestProcess)
#include "tst_process.moc"
