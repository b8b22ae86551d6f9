#pragma once

#include <QMap>
#include <QString>

/// A command line of the box: options of the form /name=value or /name:value between blanks, with double
/// quotes around stretches that hold blanks.
struct CommandLine
{
    QMap<QString, QString>
        options;       ///< by lower-case name; the last one of a name counts; no value is an empty text
    QString remainder; ///< what follows the last option

    bool has(const QString &name) const { return options.contains(name); }
    QString value(const QString &name) const { return options.value(name); }
};

/// Takes any text, also unpaired quotes (they reach to the end) and embedded zeros. Linear in its length. Any
/// thread.
CommandLine parseCommandLine(const QString &text);

/// Whether it ends the box.
bool isExit(const CommandLine &command);
