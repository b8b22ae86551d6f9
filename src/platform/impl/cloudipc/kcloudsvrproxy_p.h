#pragma once

#include "calltable.h"
#include "cloudlink.h"
#include "kcloudsvrproxy.h"
#include "loginkeeper.h"
#include "pushrouter.h"

#include <QPointer>

/// What the proxy is made of: the connection, the requests that wait, the login, and where pushes go.
class KCloudSvrProxy::Private
{
public:
    explicit Private(KCloudSvrProxy *proxy);

    QString callList(const QString &method, const QStringList &args, QObject *receiver, const QString &slot);
    void onMessage(const zel::wire::MessageHead &head, zel::wire::MessageReader &reader);
    void onUp();
    void onLost();
    void onUnreachable();

    KCloudSvrProxy *q;
    KVelaEventObject events;
    zel::cloudipc::CloudLink link;
    zel::cloudipc::CallTable calls;
    zel::cloudipc::LoginKeeper login;
    zel::cloudipc::PushRouter pushes;
};
