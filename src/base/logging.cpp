#include "base/logging.h"

Q_LOGGING_CATEGORY(lcApp, "zel.app", QtInfoMsg)
Q_LOGGING_CATEGORY(lcCloud, "zel.cloud", QtInfoMsg)
Q_LOGGING_CATEGORY(lcMainWindow, "zel.mainwindow", QtInfoMsg)
Q_LOGGING_CATEGORY(lcRecent, "zel.recentfile", QtInfoMsg)
Q_LOGGING_CATEGORY(lcPlatform, "zel.platform", QtInfoMsg)
Q_LOGGING_CATEGORY(lcService, "zel.service", QtInfoMsg)
Q_LOGGING_CATEGORY(lcUserAgent, "zel.useragent", QtInfoMsg)
Q_LOGGING_CATEGORY(lcTrace, "zel.trace", QtInfoMsg)
