#pragma once

#include "krpcresponse.h"

#include <map>
#include <string>
#include <vector>

namespace zel::vela {
class VelaIpcResult;
}

/// Between the records' types and Qt's. Pure.
namespace zel::cloudipc {

KRpcResponse rpcResponse(const vela::VelaIpcResult &result);
QMap<QString, QString> toQt(const std::map<std::string, std::string> &map);
QStringList toQt(const std::vector<std::string> &list);

} // namespace zel::cloudipc
