#pragma once

#include "zelplatform_export.h"

#include <QMap>
#include <QStringList>

namespace zel::vela {
class VelaIpcArg;
}

/// Small rules of the link that many callers share. GUI thread.
class ZELPLATFORM_EXPORT KVelaUtil
{
public:
    /// May the state of desktop synchronisation be asked for now: a link of this process is connected and its
    /// user signed in.
    static bool canQueryDesktopSyncState();

    static QString joinIds(const QStringList &ids); ///< with "|"; ids must not contain it
    static QStringList splitIds(const QString &ids);
    static QString boolText(bool value); ///< "true" or "false", as arguments carry it

    /// The envelope of a method without records of its own.
    static zel::vela::VelaIpcArg ipcArg(const QString &method, const QMap<QString, QString> &arguments = {});
};
