#pragma once

#include "clouddoc/clouddoclogic.h"

/// What went wrong, in plain words. GUI thread (translated).
namespace zel::clouddoc {

QString problemText(CloudProblem problem); ///< a sentence; empty for None

/// What was not done, and why: "2 items could not be moved. You do not have permission for this." `name` is
/// that of the only one; empty: not known.
QString failureText(CloudOperation operation, CloudProblem problem, int count, const QString &name = {});

} // namespace zel::clouddoc
