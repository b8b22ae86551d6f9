#pragma once

#include "clouddoc/clouddocument.h"

namespace zel::clouddoc {

/// What is to be known of a document beside its name, as a screen reader says it: kind, size, time, transfer.
/// GUI thread (translated, locale).
QString spokenText(const CloudDocument &document);

} // namespace zel::clouddoc
