#pragma once

#include <QtTest/QtTest>

/// Gives every test program the names of its own, so that user defaults of tests and of a person
/// never meet, and no session bus (see SecretService.h). Used in place of QTEST_MAIN.
void prepareTestProcess();

#define VELMORA_TEST_MAIN(TestClass)                          \
    int main(int argumentCount, char **arguments) {           \
        prepareTestProcess();                                 \
        QApplication application(argumentCount, arguments);   \
        TestClass test;                                       \
        return QTest::qExec(&test, argumentCount, arguments); \
    }
