#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

/// Texts of options as command lines have them: "/name=value" between blanks, with double quotes around
/// stretches that hold blanks. Pure functions, linear in the length; any thread.
namespace zel {

struct OptionPieces
{
    QStringList pieces;     ///< also the empty ones between two blanks
    bool quoteOpen = false; ///< the last double quote has no partner; it reached to the end
};
/// Splits at blanks outside of double quotes; the quotes themselves go.
OptionPieces splitOptionText(QStringView text);

struct Option
{
    QString name; ///< lower case; may be empty
    QString value;
};
/// "/name=value", or "/name:value" where there is no "=", or "/name" alone; nothing without the slash.
std::optional<Option> parseOption(const QString &piece);

} // namespace zel
