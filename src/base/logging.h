#pragma once

#include <QLoggingCategory>

/// One category per folder. At info level they carry ids, kinds, counts and durations, never document names.
Q_DECLARE_LOGGING_CATEGORY(lcApp)
Q_DECLARE_LOGGING_CATEGORY(lcCloud)
Q_DECLARE_LOGGING_CATEGORY(lcMainWindow)
Q_DECLARE_LOGGING_CATEGORY(lcRecent)
Q_DECLARE_LOGGING_CATEGORY(lcPlatform)
Q_DECLARE_LOGGING_CATEGORY(lcService)
Q_DECLARE_LOGGING_CATEGORY(lcUserAgent)
Q_DECLARE_LOGGING_CATEGORY(lcTrace) ///< lines of KxLoggerLite
