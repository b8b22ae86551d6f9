#include "calltimeout.h"

#include <algorithm>
#include <iterator>

using namespace std::chrono_literals;

namespace zel::cloudipc {
namespace {

struct Row
{
    std::string_view method;
    std::chrono::milliseconds timeout;
};

// Methods that wait for a server, a person or many files. Ordered by name.
constexpr Row Slow[] = {
    {"batchCopy", 300s},
    {"batchDestroyRecycleFiles", 300s},
    {"batchMoveChild", 300s},
    {"batchRecoverRecycleFiles", 300s},
    {"batchRemove", 300s},
    {"batchUploadFileListToAnyExistedPath", 300s},
    {"clearCache", 300s},
    {"clearRecycleBin", 300s},
    {"clearRecycleBinV5", 300s},
    {"cloudDocContentSearch", 60s},
    {"cloudDocSearch", 60s},
    {"cloudItemsCopyTo", 300s},
    {"cloudItemsDuplicate", 300s},
    {"cloudItemsMoveTo", 300s},
    {"cloudItemsSaveAs", 300s},
    {"companyGroupSearch", 60s},
    {"copy", 300s},
    {"downloadFileFromCloud", 300s},
    {"folderUpload", 300s},
    {"login", 120s},
    {"move", 300s},
    {"saveAs", 300s},
};
static_assert(std::ranges::is_sorted(Slow, {}, &Row::method));

} // namespace

std::chrono::milliseconds callTimeout(std::string_view method)
{
    const auto row = std::ranges::lower_bound(Slow, method, {}, &Row::method);
    return row != std::end(Slow) && row->method == method ? row->timeout : 30s;
}

} // namespace zel::cloudipc
