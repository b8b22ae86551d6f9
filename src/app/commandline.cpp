#include "app/commandline.h"

#include "base/optiontext.h"

CommandLine parseCommandLine(const QString &text)
{
    CommandLine result;
    QStringList remainder;
    const QStringList pieces = zel::splitOptionText(text).pieces;
    for (const QString &piece : pieces) {
        if (const auto option = zel::parseOption(piece)) {
            remainder.clear();
            result.options.insert(option->name, option->value);
        } else {
            remainder.append(piece);
        }
    }
    result.remainder = remainder.join(QLatin1Char(' '));
    return result;
}

bool isExit(const CommandLine &command)
{
    return command.value(QStringLiteral("action")) == QLatin1String("exit");
}
