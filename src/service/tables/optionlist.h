#pragma once

#include <QMap>
#include <QString>
#include <QStringView>
#include <optional>

namespace zel::service {

using OptionList = QMap<QString, QString>; ///< values by lower-case name

/// The options of a command line: /name=value, or /name:value where there is no "=", or /name alone. Nothing
/// when a name comes twice, something else stands between the options, or a double quote has no partner.
std::optional<OptionList> parseOptions(QStringView line);

/// The text of strict Base64 with its padding; nothing when it is no Base64 or holds no valid UTF-8.
std::optional<QString> decodeText(const QString &base64);

} // namespace zel::service
