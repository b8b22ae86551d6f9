#pragma once

#include <QString>

namespace zel {

QString version(); ///< of the box, as `zelbox --version` says it; not the suite's, which the application has

} // namespace zel
