#pragma once

// The window tests of a folder are one program; each class of tests is one run of it, named as its first argument.

#include <QtTest>

using QtTestRun = int (*)(int argc, char** argv);

/// Makes a class of tests known to main(); true, so that it can initialise a constant.
bool addQtTest(const char* name, QtTestRun run);

/// In the place of QTEST_MAIN.
#define VM_QT_TEST(Class)                                                                                              \
    static const bool added##Class = addQtTest(#Class, [](int argc, char** argv) {                                     \
        Class tests;                                                                                                   \
        return QTest::qExec(&tests, argc, argv);                                                                       \
    });
