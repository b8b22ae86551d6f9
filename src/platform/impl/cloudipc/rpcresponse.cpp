#include "rpcresponse.h"

#include "common_types.h"

namespace zel::cloudipc {

KRpcResponse rpcResponse(const vela::VelaIpcResult &result)
{
    return {result.state, toQt(result.resultMap), toQt(result.resultList),
        QString::fromStdString(result.resultString)};
}

QMap<QString, QString> toQt(const std::map<std::string, std::string> &map)
{
    QMap<QString, QString> texts;
    for (const auto &[key, value] : map)
        texts.insert(QString::fromStdString(key), QString::fromStdString(value));
    return texts;
}

QStringList toQt(const std::vector<std::string> &list)
{
    QStringList texts;
    texts.reserve(int(list.size()));
    for (const std::string &text : list)
        texts.append(QString::fromStdString(text));
    return texts;
}

} // namespace zel::cloudipc
