#pragma once

#include "zelplatform_export.h"

#include <QMap>
#include <QString>

/// The suite's data collection. Off unless the setting "plugins/zelbox/telemetryEnabled" is true; then every
/// event is one JSON line in `$XDG_STATE_HOME/zelbox/telemetry.jsonl` (rotated at 1 MiB). Never sent
/// anywhere. GUI thread.
class ZELPLATFORM_EXPORT KDcInfoC
{
public:
    static void postGeneralEvent(const QString &name, const QMap<QString, QString> &parameters = {});
    static bool isEnabled();
    static void setEnabled(bool on); ///< stores the choice
    static QString filePath();       ///< of the newest lines; older ones are in ".1" to ".3" beside it
    static bool clear();             ///< removes what was written; false when something could not be removed
};
