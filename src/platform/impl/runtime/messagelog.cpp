#include "messagelog.h"

#include "rotatingfile.h"

#include <QCoreApplication>

#include <memory>
#include <mutex>
#include <unistd.h>

namespace zel::platform {
namespace {

constexpr int MaxTextLength = 8 * 1024; // UTF-16 units

struct MessageLog
{
    std::mutex mutex;
    std::shared_ptr<RotatingFile> file;
    QtMessageHandler earlier = nullptr;
    bool installed = false;
    const bool hasTerminal = ::isatty(STDERR_FILENO) == 1;
};

// Never destroyed: threads may log until the last moment of the process.
MessageLog &messageLog()
{
    static auto *log = new MessageLog;
    return *log;
}

char levelLetter(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return 'D';
    case QtInfoMsg:
        return 'I';
    case QtWarningMsg:
        return 'W';
    case QtCriticalMsg:
        return 'E';
    case QtFatalMsg:
        return 'F';
    }
    return '?';
}

bool breaksLine(QChar c)
{
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator
        || c == QChar::ParagraphSeparator;
}

QString onOneLine(QString text)
{
    if (text.size() > MaxTextLength) {
        const bool splitsPair = text.at(MaxTextLength - 1).isHighSurrogate();
        text.truncate(splitsPair ? MaxTextLength - 1 : MaxTextLength);
        text += QChar(0x2026);
    }
    QString line;
    line.reserve(text.size());
    for (const QChar c : qAsConst(text)) {
        if (!breaksLine(c))
            line += c;
        else if (c == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else
            line += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
    }
    return line;
}

void writeToStderr(const QByteArray &line)
{
    const QByteArray bytes = line + '\n';
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, bytes.constData(), size_t(bytes.size()));
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    MessageLog &log = messageLog();
    std::shared_ptr<RotatingFile> file;
    {
        const std::lock_guard lock(log.mutex);
        file = log.file;
    }
    const QByteArray line = formatLogLine(
        QDateTime::currentDateTime(), type, context.category, text, QCoreApplication::applicationPid());
    const bool written = file && file->append(line);
    const bool serious = type != QtDebugMsg && type != QtInfoMsg;
    if (!written || serious || log.hasTerminal)
        writeToStderr(line);
}

} // namespace

QByteArray formatLogLine(
    const QDateTime &time, QtMsgType type, const char *category, const QString &text, qint64 processId)
{
    QByteArray line = time.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss.zzz")).toLatin1();
    line += ' ';
    line += QByteArray::number(processId);
    line += ' ';
    line += levelLetter(type);
    line += ' ';
    line += category ? category : "default";
    line += ": ";
    line += onOneLine(text).toUtf8();
    return line;
}

void installMessageLog(const QString &path)
{
    MessageLog &log = messageLog();
    {
        const std::lock_guard lock(log.mutex);
        log.file = std::make_shared<RotatingFile>(path);
    }
    if (!log.installed)
        log.earlier = qInstallMessageHandler(handleMessage);
    log.installed = true;
}

void removeMessageLog()
{
    MessageLog &log = messageLog();
    if (!log.installed)
        return;
    // A handler that somebody put over ours stays; it may still hand messages down to ours.
    const QtMessageHandler current = qInstallMessageHandler(log.earlier);
    if (current != handleMessage)
        qInstallMessageHandler(current);
    log.installed = false;
    const std::lock_guard lock(log.mutex);
    log.file.reset();
}

} // namespace zel::platform
