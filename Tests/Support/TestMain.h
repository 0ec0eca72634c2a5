#pragma once

#include "Support/EventTimeout.h"

/// Gives every test process its own application name, so that it does not share user defaults with
/// the user, and no session bus (see SecretService.h). Must be called first by every test.
void prepareTestProcess();

/// A test by its name. One executable contains all tests of a folder; its first argument selects
/// the test, and the others are passed to it.
class TestProgram {
public:
    using Main = int (*)(int argumentCount, char **arguments);

    /// Registers `main` as `name` until the process ends.
    TestProgram(const char *name, Main main);

    /// Runs the test that the arguments name. Returns 2, after printing all names, if there is
    /// none.
    static int run(int argumentCount, char **arguments);
};

/// Begins a test with a main function of its own: VELMORA_TEST_PROGRAM(LogTest)(int, char **) { … }
#define VELMORA_TEST_PROGRAM(Name)                                  \
    static int mainOf##Name(int argumentCount, char **arguments);   \
    static const TestProgram programOf##Name(#Name, &mainOf##Name); \
    static int mainOf##Name

/// What most tests are: an application object, and the class's functions one after the other. Used
/// in place of QTEST_MAIN.
#define VELMORA_TEST(TestClass)                                            \
    VELMORA_TEST_PROGRAM(TestClass)(int argumentCount, char **arguments) { \
        prepareTestProcess();                                              \
        const QApplication application(argumentCount, arguments);          \
        TestClass test;                                                    \
        return QTest::qExec(&test, argumentCount, arguments);              \
    }
