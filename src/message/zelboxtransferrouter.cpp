#include "message/zelboxtransferrouter.h"

ZelBoxTransferRouter *ZelBoxTransferRouter::instance()
{
    static ZelBoxTransferRouter router;
    return &router;
}
