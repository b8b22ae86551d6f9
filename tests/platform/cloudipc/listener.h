#pragma once

#include "common_types.h"
#include "krpcresponse.h"
#include "search_types.h"
#include "support/test.h"

using zel::vela::VelaIpcResult;

/// Receives answers in all the forms that a slot may have, and keeps what came.
class ListenerBase : public QObject
{
    Q_OBJECT
public:
    struct Ending
    {
        QString slot;
        QString id;
        bool ok = false;
        int state = 0;
        QString text;
    };
    QVector<Ending> endings;
    std::function<void()> then; ///< called in each slot; may destroy this

    void end(const char *slot, bool ok, const QString &id, int state, const QString &text = {})
    {
        endings.append({QLatin1String(slot), id, ok, state, text});
        if (const auto next = then)
            next();
    }

public Q_SLOTS:
    void onInherited(bool bOk, const QString &id, const zel::vela::VelaIpcResult &result)
    {
        end("onInherited", bOk, id, result.state);
    }
};

class Listener final : public ListenerBase
{
    Q_OBJECT
public Q_SLOTS:
    void onResult(bool bOk, const QString &id, const zel::vela::VelaIpcResult &result)
    {
        end("onResult", bOk, id, result.state, QString::fromStdString(result.resultString));
    }
    void onShortName(bool bOk, const QString &id, const VelaIpcResult &result)
    {
        end("onShortName", bOk, id, result.state);
    }
    void onCopy(bool bOk, QString id, zel::vela::VelaIpcResult result)
    {
        end("onCopy", bOk, id, result.state);
    }
    void onResponse(bool bOk, const QString &id, const KRpcResponse &response)
    {
        end("onResponse", bOk, id, response.state(),
            response.text() + response.list().join(QLatin1Char(',')));
    }
    void onSearch(bool bOk, const QString &id, const zel::vela::CloudDocSearchResult &result)
    {
        end("onSearch", bOk, id, result.state);
    }
    void onOverloaded(bool bOk) { end("the wrong onOverloaded", bOk, {}, 0); }
    void onOverloaded(bool bOk, const QString &id, const zel::vela::VelaIpcResult &result)
    {
        end("onOverloaded", bOk, id, result.state);
    }
    void onOverloaded(bool bOk, const QString &id, int) { end("the wrong onOverloaded", bOk, id, 0); }
    void onTwo(bool bOk, const QString &id) { end("onTwo", bOk, id, 0); }
    void onNumber(bool bOk, const QString &id, int) { end("onNumber", bOk, id, 0); }
    void onChangeable(bool bOk, const QString &id, zel::vela::VelaIpcResult &)
    {
        end("onChangeable", bOk, id, 0);
    }

private Q_SLOTS:
    void onPrivate(bool bOk, const QString &id, const zel::vela::VelaIpcResult &result)
    {
        end("onPrivate", bOk, id, result.state);
    }
};
