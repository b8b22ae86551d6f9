#include "rpcresponse.h"

#include "cloud/wire/texts.h"
#include "common_types.h"

namespace zel::cloudipc {

KRpcResponse rpcResponse(const vela::VelaIpcResult &result)
{
    using wire::toQt;
    return {result.state, toQt(result.resultMap), toQt(result.resultList), toQt(result.resultString)};
}

} // namespace zel::cloudipc
