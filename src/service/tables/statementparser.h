#pragma once

#include "service/tables/statement.h"

namespace zel::service {

inline constexpr int MaxStatementLength = 512 * 1024; ///< UTF-16 units
inline constexpr int MaxIdLength = 512;
inline constexpr int MaxPathLength = 8192;
inline constexpr int MaxIds = 2000;  ///< of one count of unread messages
inline constexpr int MaxRows = 9999; ///< that one read of an id's messages may ask for

/// Why a text was refused, for the log.
enum class Refusal {
    TooLong,
    NotText,      ///< broken surrogates or zeros
    UnknownShape, ///< also: a quote inside a value, a second statement, another spelling
    ValueTooLong,
    NumberTooLarge,
    TooManyIds,
};
const char *toText(Refusal refusal);

/// The meaning of `text` when it is, to the letter, one of the statements that clients send; `why` is set
/// when it is not. Values stand between quotes and hold none; numbers are plain decimal. Pure; linear in the
/// length.
std::optional<Statement> parseStatement(QStringView text, Refusal *why = nullptr);

/// The text that parseStatement() takes for `statement`.
QString toText(const Statement &statement);

} // namespace zel::service
