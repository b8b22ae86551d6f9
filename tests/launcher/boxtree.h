#pragma once

constexpr int patience = 30000;                   ///< milliseconds for what has to come
const QString holdStart = "FAKEBOX_HOLD_START"_s; ///< before the box registers its handler
const QString holdEnd = "FAKEBOX_HOLD_END"_s;     ///< when it has removed it and is about to end
const QString exitCommand = "/action=exit"_s;

using zeltest::words;
QString activate(const zeltest::Text &commandLine); ///< the message for that command line

/// An installation of its own: the real launcher, the recording box, and a private runtime folder.
class BoxTree
{
public:
    struct Record
    {
        qint64 pid;
        QString what;
        QString text;
    };
    using Process = std::unique_ptr<QProcess>;

    /// `libraryFolder` is where the box lies, below the root; empty for no box at all.
    explicit BoxTree(const QString &libraryFolder = "lib"_s);
    ~BoxTree();

    void set(const zeltest::Text &variable, const zeltest::Text &value)
    {
        environment.insert(variable, value);
    }
    /// Makes a pipe on which the box stands still at the point that `variable` names, until letGo().
    void hold(const QString &variable);
    void letGo(const QString &variable);

    Process start(const QStringList &arguments = {});
    /// Starts and waits until this process is the box; null when it does not become it.
    Process startBox(const QStringList &arguments = {});
    /// Starts, waits for the end, and returns the exit code; -1 when it did not end in time or crashed.
    int run(const QStringList &arguments = {});

    bool isUp() { return run({"/up"_s}) == 0; } ///< a later start reaches the box
    bool end(QProcess &box)                     ///< ends the box in order
    {
        return run({exitCommand}) == 0 && box.waitForFinished(patience) && box.exitCode() == 0;
    }
    QVector<Record> records() const;
    QStringList texts(const zeltest::Text &what) const; ///< of all records of that kind, in order
    /// Of the launcher, with its socket and locks.
    QString runtimeFolder() const { return root.filePath("run/zelbox"_s); }
    std::string socketPath() const
    {
        return QFile::encodeName(runtimeFolder() + "/zelbox.sock"_s).toStdString();
    }

    QTemporaryDir root;
    QProcessEnvironment environment;
    QByteArray output; ///< of the latest run()
    QByteArray errors;

private:
    QString pipePath(const QString &variable) const { return root.filePath(variable); }
};
