#include <krt/krt.h>

// In place of the runtime: there is no program to start, so that a service that does not listen stays away.
QString krt::dirs::programs()
{
    return QStringLiteral("/nonexistent");
}
