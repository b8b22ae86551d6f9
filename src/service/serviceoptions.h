#pragma once

#include <QString>
#include <QStringList>

/// What the cloud service was asked for on its command line. Pure value.
struct ServiceOptions
{
    enum class Mode { Run, Help, Version, Invalid };

    Mode mode = Mode::Run;
    bool exitWithLastClient = false; ///< leave some seconds after the last client has gone
    int readyFd = -1;                ///< gets one byte once the socket can be connected to; -1: none
    QString drive;                   ///< folder of the cloud documents; empty for the usual one
    QString text;                    ///< the help text, or what is wrong

    static ServiceOptions parse(const QStringList &arguments); ///< `arguments` begin with the program's name
};
