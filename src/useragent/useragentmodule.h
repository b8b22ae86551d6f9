#pragma once

#include <QString>

/// The user agent for parts of the box that may not bring Qt Network along by linking: found at run time with
/// boxModuleFunction(UserAgentModule, UserAgentFunctionName).
namespace zel {

inline constexpr const char *UserAgentModule = "libzeluseragent.so.0";
inline constexpr const char *UserAgentFunctionName = "zelUserAgent";

/// KxUserAgentUtil::getUserAgent(), for `version` of the product unless it has been told another one. GUI
/// thread.
using UserAgentFunction = QString (*)(const QString &version);

} // namespace zel
