#include "useragent/useragentmodule.h"

#include "useragent/kxuseragentutil.h"

extern "C" Q_DECL_EXPORT QString zelUserAgent(const QString &version);

QString zelUserAgent(const QString &version)
{
    if (KxUserAgentUtil::getVersion().isEmpty())
        KxUserAgentUtil::setVersion(version);
    return KxUserAgentUtil::getUserAgent();
}
