#include "kxloggerlite.h"

#include "base/logging.h"

#include <QString>

void KxLoggerLite::writeInfo(const std::wstring &line)
{
    qCInfo(lcTrace).noquote() << QString::fromStdWString(line);
}
