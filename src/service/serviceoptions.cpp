#include "service/serviceoptions.h"

#include <QCommandLineParser>

namespace {

// The standard descriptors are never handed over, whatever the number says.
bool isPassedFd(int fd)
{
    return fd > 2;
}

} // namespace

ServiceOptions ServiceOptions::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Holds login, cloud documents and message tables for the document box."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption leave(QStringLiteral("exit-with-last-client"),
        QStringLiteral("Leaves a few seconds after the last client has gone."));
    const QCommandLineOption ready(QStringLiteral("ready-fd"),
        QStringLiteral("Writes one byte to this open descriptor once clients can connect."),
        QStringLiteral("number"));
    const QCommandLineOption drive(QStringLiteral("drive"),
        QStringLiteral(
            "Keeps the cloud documents in this folder (\"ZEL Cloud\" in the home folder by default)."),
        QStringLiteral("folder"));
    parser.addOptions({leave, ready, drive});

    ServiceOptions options;
    const bool understood = parser.parse(arguments) && parser.positionalArguments().isEmpty();
    bool isNumber = !parser.isSet(ready);
    if (parser.isSet(ready))
        options.readyFd = parser.value(ready).toInt(&isNumber);
    options.exitWithLastClient = parser.isSet(leave);
    options.drive = parser.value(drive);
    if (!understood || !isNumber || (parser.isSet(ready) && !isPassedFd(options.readyFd))) {
        options.mode = Mode::Invalid;
        options.text = parser.errorText().isEmpty() ? QStringLiteral("Wrong arguments.") : parser.errorText();
    } else if (parser.isSet(help)) {
        options.mode = Mode::Help;
        options.text = parser.helpText();
    } else if (parser.isSet(version)) {
        options.mode = Mode::Version;
    }
    return options;
}
