#include "app/zelboxapplication.h"

#include "app/startupnotice.h"
#include "app/zelboxcore.h"
#include "cloud/zelboxcloudsvr.h"

ZelBoxApplicationIndependentProcesses::ZelBoxApplicationIndependentProcesses(int &argc, char **argv)
    : KCoreApplication(argc, argv, QStringLiteral("zelbox"), QStringLiteral("Office"), QStringLiteral("6.0")),
      m_cloudService(new ZelBoxCloudSvr(this))
{
    StartupToken::dropFromEnvironment();
    // The window's close is ours to answer; Qt would otherwise close every window to end a desktop session.
    setFallbackSessionManagementEnabled(false);
}

ZelBoxApplicationIndependentProcesses::~ZelBoxApplicationIndependentProcesses()
{
    if (m_core)
        m_core->takeDown();
}

bool ZelBoxApplicationIndependentProcesses::isRunning()
{
    return qobject_cast<ZelBoxApplicationIndependentProcesses *>(qApp);
}

bool ZelBoxApplicationIndependentProcesses::start(const QString &cmdline)
{
    if (!m_core)
        m_core = ZelBoxCore::instance(m_cloudService);
    return m_core && m_core->init(cmdline);
}

bool ZelBoxApplicationIndependentProcesses::nativeEventFilter(const QByteArray &, void *, long *)
{
    return false;
}
