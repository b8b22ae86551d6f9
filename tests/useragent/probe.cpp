#include "useragent/kxuseragentutil.h"

#include <cstdio>
#include <cstring>
#include <unistd.h>

// useragent_probe [HOST]: prints device id and user agent; with HOST again after the machine took that name.
int main(int argc, char **argv)
{
    const auto print = [] {
        std::printf(
            "%s\n%s\n", qPrintable(KxUserAgentUtil::getHDID2()), qPrintable(KxUserAgentUtil::getUserAgent()));
    };
    print();
    if (argc < 2)
        return 0;
    if (::sethostname(argv[1], std::strlen(argv[1])) != 0)
        return 1;
    print();
    return 0;
}
