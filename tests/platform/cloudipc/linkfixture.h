#pragma once

#include "fakeservice.h"
#include "kcloudsvrproxy.h"

/// A proxy of the given class and a fake service that it connects to.
template <class Proxy> struct LinkFixture
{
    LinkFixture()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
        service = std::make_unique<FakeService>(folder.path());
        proxy = std::make_unique<Proxy>();
    }
    /// Connects and takes the first answer about the login.
    bool connectNow()
    {
        QSignalSpy told(proxy.get(), &KCloudSvrProxy::loginStatusChanged);
        proxy->startVelaProcess(QString());
        return told.wait(Patience) && proxy->isConnected();
    }
    QString call(QObject *receiver, const char *slot, const char *method = "anything")
    {
        auto arg = filled(
            &zel::vela::VelaIpcArg::nameSpace, "KVelaIpcCallObj", &zel::vela::VelaIpcArg::method, method);
        const QString id = proxy->asynCallEx(
            "velaIpcCall"_s, QGenericArgument("VelaIpcArg", &arg), receiver, QString::fromLatin1(slot));
        arg.method = "changed right after the call";
        return id;
    }

    static constexpr int Patience = 20000;
    QTemporaryDir folder;
    std::unique_ptr<FakeService> service;
    std::unique_ptr<Proxy> proxy;
};
