#pragma once

// Not for moc, which would read all of Qt again for each test.
#ifndef Q_MOC_RUN
#include <QtTest/QtTest>
#endif

/// Gives every test process the names of its own, so that user defaults of tests and of a person
/// never meet, and no session bus (see SecretService.h). Called first by every test.
void prepareTestProcess();

/// A test by its name. One executable holds all of a folder; its first argument says which of them
/// it is, and the others are that test's own.
class TestProgram {
public:
    using Main = int (*)(int argumentCount, char **arguments);

    /// Offers `main` as `name`, for as long as the process lasts.
    TestProgram(const char *name, Main main);

    /// Runs the one that the arguments name; 2, with the names there are, where they name none.
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
