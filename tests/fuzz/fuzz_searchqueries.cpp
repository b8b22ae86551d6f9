// What a user types into the search field: nothing breaks the parser, an error's place lies in the text, and
// blanks around it change nothing.

#include "localsearch/engine/queryparser.h"

#include <cstdlib>

using namespace zel::localsearch;

namespace {

const QueryContext context = {
    std::chrono::sys_days(std::chrono::days(20781)), std::chrono::Monday, "/home/x"};

void require(bool held)
{
    if (!held)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const auto parsed = parseQuery(text, context);
    if (const auto *error = std::get_if<QueryError>(&parsed)) {
        require(error->where.begin < error->where.end && error->where.end <= text.size());
        return 0;
    }
    const Query &query = std::get<Query>(parsed);
    require(query.terms.size() + query.folders.size() <= mostTerms);
    if (text.size() + 2 <= longestQuery)
        require(std::get<Query>(parseQuery(" " + std::string(text) + " ", context)) == query);
    return 0;
}
