#pragma once

class KCloudSvrProxy;
class ZelBoxExitDialog;

namespace zel {

/// Has the cloud service tell the question what goes on without the box. Nothing when the service is not
/// reached. GUI thread; `cloud` may be null.
void tellWhatGoesOn(KCloudSvrProxy *cloud, ZelBoxExitDialog *question);

} // namespace zel
