#pragma once

#include <QtWidgets/QApplication>

#include "Support/TestMain.h"
#include "Support/VirtualDisplay.h"

/// A test of the program on a VirtualDisplay: the functions of the class one after the other, after
/// the calls that follow it, which may exit the process if the system lacks something, such as
/// AccessibleScreen::require(). In place of VELMORA_TEST.
#define VELMORA_DISPLAY_TEST(TestClass, ...)                               \
    VELMORA_TEST_PROGRAM(TestClass)(int argumentCount, char **arguments) { \
        VirtualDisplay::require();                                         \
        __VA_OPT__(__VA_ARGS__;)                                           \
        prepareTestProcess();                                              \
        const QApplication application(argumentCount, arguments);          \
        TestClass test;                                                    \
        return QTest::qExec(&test, argumentCount, arguments);              \
    }
