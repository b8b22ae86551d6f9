#pragma once

#include "clouddoc/cloudtransfer.h"

/// What a transfer says of itself. GUI thread (translated, locale).
namespace zel::clouddoc {

QString statusText(const CloudTransfer &transfer); ///< one line: how far it is, or why it is not
QString spokenText(const CloudTransfer &transfer); ///< the same with the percents that a bar shows

/// "less than a minute left", "3 minutes left", "2 hours left"; empty when that is not known (0 or less).
QString remainingText(qint64 seconds);

} // namespace zel::clouddoc
