#pragma once

#include "zelplatform_export.h"

#include <QLatin1String>
#include <QString>

/// What a file is by the suffix of its name: "document", "sheet", "slides", "pdf", "text", "picture",
/// "sound", "film", "archive", "code" or "book"; null when the suffix says nothing. No file is looked at. Any
/// thread.
ZELPLATFORM_EXPORT QLatin1String FileClassOf(const QString &fileName);
