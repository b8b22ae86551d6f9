#include "messagelog.h"

#include "rotatingfile.h"

#include <QCoreApplication>
#include <QRegularExpression>

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

// From the first to the last quote: a name may have quotes of its own. Within a word it is an apostrophe.
void coverQuoted(QString *text, const QString &quote)
{
    const QRegularExpression quoted(
        QStringLiteral("(?<!\\w)%1.*%1(?!\\w)").arg(quote), QRegularExpression::DotMatchesEverythingOption);
    text->replace(quoted, quote + QChar(0x2026) + quote);
}

// A path may have blanks, so it goes to the end, or to that of the brackets around it.
void coverPath(QString *text)
{
    static const QRegularExpression begin(QStringLiteral("(?<![\\w./:])(file:/*|/)(?=[^\\s/])"));
    const int first = text->indexOf(begin);
    if (first < 0)
        return;
    const bool bracketed = first > 0 && text->at(first - 1) == QLatin1Char('(');
    const int last = bracketed ? text->lastIndexOf(QLatin1Char(')')) : -1;
    text->replace(first, (last > first ? last : text->size()) - first, QChar(0x2026));
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
    const QByteArray line = formatLogLine(QDateTime::currentDateTime(), type, context.category,
        withoutNames(context.category, text), QCoreApplication::applicationPid());
    const bool written = file && file->append(line);
    const bool serious = type != QtDebugMsg && type != QtInfoMsg;
    if (!written || serious || log.hasTerminal)
        writeToStderr(line);
}

} // namespace

QString withoutNames(const char *category, const QString &text)
{
    const QByteArray by(category);
    if (by.startsWith("zel.") || by.startsWith("qt.qpa.plugin") || by.startsWith("qt.core.plugin"))
        return text;
    QString covered = text;
    coverQuoted(&covered, QStringLiteral("\""));
    coverQuoted(&covered, QStringLiteral("'"));
    coverPath(&covered);
    return covered;
}

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
