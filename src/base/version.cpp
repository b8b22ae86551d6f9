#include "base/version.h"

QString zel::version()
{
    return QStringLiteral(ZEL_VERSION);
}
