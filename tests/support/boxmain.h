#pragma once

#include "kcoreapplication.h"

/// The main() of a test under the box's own application object, which has its style and follows the desktop.
#define ZELTEST_BOX_MAIN(Test)                                                                               \
    int main(int argc, char **argv)                                                                          \
    {                                                                                                        \
        KCoreApplication app(argc, argv, "zelbox"_s, "Office"_s, "6.0"_s);                                   \
        Test test;                                                                                           \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
