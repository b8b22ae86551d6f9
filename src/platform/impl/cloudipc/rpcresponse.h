#pragma once

#include "krpcresponse.h"

namespace zel::vela {
class VelaIpcResult;
}

namespace zel::cloudipc {

KRpcResponse rpcResponse(const vela::VelaIpcResult &result);

} // namespace zel::cloudipc
