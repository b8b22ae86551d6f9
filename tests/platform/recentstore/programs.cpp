#include <krt/krt.h>

// In place of the runtime: tests of the store start no cloud service.
QString krt::dirs::programs()
{
    return QStringLiteral("/nonexistent");
}
