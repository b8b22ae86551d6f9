#pragma once

/// The real service in a runtime folder and a data folder of its own; may be killed and started again on the
/// same data.
class ServiceProcess
{
public:
    ServiceProcess()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path()));
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.filePath("data"_s)));
        qputenv("HOME", QFile::encodeName(m_folder.path()));
        QDir(m_folder.path()).mkdir("data"_s);
    }
    ~ServiceProcess() { kill(); }

    /// True once clients can connect. `wrapper`: a command that runs the program named after it.
    bool start(const QStringList &wrapper = {})
    {
        m_process = std::make_unique<QProcess>();
        QStringList command = wrapper + QStringList{qEnvironmentVariable("ZEL_CLOUD")};
        const QString program = command.takeFirst();
        m_process->setReadChannel(QProcess::StandardError);
        m_process->start(program, command);
        m_log.clear();
        while (!m_log.contains("ready") && m_process->waitForReadyRead(Patience))
            m_log += m_process->readAllStandardError();
        return m_log.contains("ready");
    }
    void kill()
    {
        if (!m_process)
            return;
        m_process->kill();
        m_process->waitForFinished(Patience);
        m_log += m_process->readAllStandardError();
    }
    /// Asks it to end and does not wait.
    void terminate()
    {
        m_process->terminate();
        m_ending = std::move(m_process);
    }
    /// Whether the one that was asked to has ended.
    bool hasEnded(int patience) { return m_ending->waitForFinished(patience); }
    /// What it had in memory at most, in KB.
    int peakMemory() const
    {
        QFile status("/proc/%1/status"_s.arg(m_process->processId()));
        const QByteArray text = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
        return text.mid(text.indexOf("VmHWM:") + 6).simplified().split(' ').value(0).toInt();
    }
    bool isRunning() const { return m_process && m_process->state() == QProcess::Running; }
    QByteArray log()
    {
        m_log += m_process->readAllStandardError();
        return m_log;
    }

    std::string socketPath() const { return m_folder.filePath("zelbox/cloud.sock"_s).toStdString(); }
    QString home() const { return m_folder.path(); }
    QString dataFolder() const { return m_folder.filePath("data/zelbox"_s); }

private:
    static constexpr int Patience = 30000;

    QTemporaryDir m_folder;
    std::unique_ptr<QProcess> m_process;
    std::unique_ptr<QProcess> m_ending; ///< was told to
    QByteArray m_log;
};
