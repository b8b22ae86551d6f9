#pragma once

#include <QVector>

/// Which steps of a path a bar has room for. Plain value.
struct CrumbFit
{
    /// Sizes in device-independent pixels.
    struct Sizes
    {
        int separator = 0; ///< between two steps
        int more = 0;      ///< the button that opens the steps left out
        int least = 0;     ///< below this a step is not worth to be shown
    };
    int leading = 0;   ///< steps shown from the root on; 0 or 1
    int trailing = 0;  ///< steps shown up to the last one, at least that one itself
    int lastWidth = 0; ///< of the last step, which alone is ever shortened

    /// `widths` of the steps, root first. The middle goes first, then the root; the last step always stays.
    static CrumbFit of(const QVector<int> &widths, int available, const Sizes &sizes);

    bool collapses(int steps) const { return leading + trailing < steps; }
};
