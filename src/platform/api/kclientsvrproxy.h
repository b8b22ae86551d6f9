#pragma once

#include "zelplatform_export.h"

#include <QObject>

/// Base of the object that answers the service's requests about the client's own windows. GUI thread.
/// Each operation is true when the client did it; this class does nothing.
class ZELPLATFORM_EXPORT KClientSvrProxy : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual bool addBrowserPage(const QString &url);
    /// Brings the named window of the client forward; empty for whichever it has.
    virtual bool activateWindow(const QString &windowIdentity);
    virtual bool addPlumePage(const QString &url);
};
