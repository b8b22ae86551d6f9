#include "clouddoc/ui/crumbfit.h"

#include <algorithm>
#include <numeric>

CrumbFit CrumbFit::of(const QVector<int> &widths, int available, const Sizes &sizes)
{
    const int count = widths.size();
    if (count == 0)
        return {};
    const int all = std::accumulate(widths.cbegin(), widths.cend(), (count - 1) * sizes.separator);
    const int last = widths.constLast();
    if (all <= available || count == 1)
        return {0, count, std::min(last, std::max(available, sizes.least))};

    int room = available - sizes.more - sizes.separator - last;
    const int root = widths.constFirst() + sizes.separator;
    CrumbFit fit{count > 2 && root <= room ? 1 : 0, 1, last};
    room -= fit.leading * root;
    while (fit.leading + fit.trailing < count - 1) {
        const int next = widths.at(count - 1 - fit.trailing) + sizes.separator;
        if (next > room)
            break;
        room -= next;
        ++fit.trailing;
    }
    if (room < 0)
        fit.lastWidth = std::max(sizes.least, last + room);
    return fit;
}
