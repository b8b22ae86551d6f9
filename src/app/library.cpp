// The shared library consists of the box's static libraries; the linker is told to keep the entries of
// zelboxentry.h.
#include "app/zelboxentry.h"
