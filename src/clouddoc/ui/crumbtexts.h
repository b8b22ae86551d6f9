#pragma once

#include "clouddoc/clouddocument.h"
#include "clouddoc/ui/breadcrumbbar.h"

namespace zel::clouddoc {

/// The way as people read it: the root has a name, too. GUI thread (translated).
QVector<BreadcrumbBar::Crumb> namedCrumbs(const CloudCrumbs &crumbs);

} // namespace zel::clouddoc
