#include "message/zelboxmessagerouter.h"

ZelBoxMessageRouter *ZelBoxMessageRouter::instance()
{
    static ZelBoxMessageRouter router;
    return &router;
}
