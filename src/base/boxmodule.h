#pragma once

/// Pieces of the box in libraries of their own, which bring further libraries with them and are needed by few
/// or late: they are loaded on first use.
namespace zel {

/// The function `symbol` of the library `file`, beside the one that this code is in or, in a build tree, in
/// the folder "lib" next to it. Null, with a warning in the log, when there is none. Never unloaded.
void *boxModuleFunction(const char *file, const char *symbol);

} // namespace zel
