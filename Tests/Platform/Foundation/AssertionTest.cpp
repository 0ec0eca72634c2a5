#include "Platform/Foundation/Assertion.h"

#include <cstdlib>
#include <thread>

#include "Support/TestMain.h"

class AssertionTest : public QObject {
    Q_OBJECT

    /// What this program writes to standard error when it runs `scenario`; it must not end well.
    static QString lastWords(const QString &scenario) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("AssertionTest"), QStringLiteral("--fail"), scenario});
        if (!process.waitForFinished() || process.exitStatus() != QProcess::CrashExit) {
            return {};
        }
        return QString::fromUtf8(process.readAllStandardError());
    }

private Q_SLOTS:
    void aFailureReportsMessageMethodAndPlace() {
        try {
            failAssertion(QStringLiteral("Näh"), "Class::method", "Controller/Class", 12);
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(), QStringLiteral("Näh"));
            QCOMPARE(failure.method(), QStringLiteral("Class::method"));
            QCOMPARE(failure.sourceFile(), QStringLiteral("Controller/Class"));
            QCOMPARE(failure.line(), 12);
            QCOMPARE(failure.report(),
                     QStringLiteral("Näh (in Class::method, Controller/Class:12)"));
            return;
        }
        QFAIL("nothing was raised");
    }

    void aFailureWithoutLineNamesTheFileAlone() {
        const AssertionFailure failure(QStringLiteral("%1 %2"), QStringLiteral("m"),
                                       QStringLiteral("f"), 0);
        QCOMPARE(failure.report(), QStringLiteral("%1 %2 (in m, f)"));
    }

    void anUnsatisfiedParameterNamesItsCondition() {
        try {
            requireParameter(false, "location != nil", "method", "file");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral("Invalid parameter not satisfying: location != nil"));
            return;
        }
        QFAIL("nothing was raised");
    }

    void aSatisfiedParameterPasses() { requireParameter(true, "condition", "method", "file"); }

    void anUncaughtFailureIsReportedBeforeTheProgramTerminates_data() {
        QTest::addColumn<QString>("words");
        const QString failure = QStringLiteral(
            "velmora-tests stopped because of a programming error: Invalid parameter not "
            "satisfying: "
            "window != nil (in method, file)\n");
        QTest::newRow("main") << failure;
        QTest::newRow("event loop") << failure;
        QTest::newRow("slot") << failure;
        QTest::newRow("thread") << failure;
        QTest::newRow("destructor") << failure;
        QTest::newRow("other exception")
            << QStringLiteral("velmora-tests stopped because of a programming error: bad\n");
        QTest::newRow("no exception class")
            << QStringLiteral("velmora-tests stopped because of an unknown programming error.\n");
        QTest::newRow("terminate")
            << QStringLiteral("velmora-tests stopped because of an unknown programming error.\n");
    }
    void anUncaughtFailureIsReportedBeforeTheProgramTerminates() {
        QFETCH(QString, words);
        QCOMPARE(lastWords(QString::fromLatin1(QTest::currentDataTag())), words);
    }
};

namespace {

void failForWindow() {
    requireParameter(false, "window != nil", "method", "file");
}

struct FailsAtItsEnd {
    ~FailsAtItsEnd() { failForWindow(); }
};

[[noreturn]] void failAs(const QString &scenario) {
    if (scenario == QLatin1StringView("event loop")) {
        QTimer::singleShot(0, [] { failForWindow(); });
        QCoreApplication::exec();
    } else if (scenario == QLatin1StringView("slot")) {
        QObject object;
        QObject::connect(&object, &QObject::objectNameChanged, [] { failForWindow(); });
        object.setObjectName(scenario);
    } else if (scenario == QLatin1StringView("thread")) {
        std::thread(&failForWindow).join();
    } else if (scenario == QLatin1StringView("destructor")) {
        const FailsAtItsEnd object;
    } else if (scenario == QLatin1StringView("other exception")) {
        throw std::runtime_error("bad");
    } else if (scenario == QLatin1StringView("no exception class")) {
        throw 1;
    } else if (scenario == QLatin1StringView("terminate")) {
        std::terminate();
    }
    failForWindow();
    std::exit(0);
}

}  // namespace

VELMORA_TEST_PROGRAM(AssertionTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    if (const QStringList given = QCoreApplication::arguments();
        given.value(1) == QLatin1StringView("--fail")) {
        failAs(given.value(2));
    }
    AssertionTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "AssertionTest.moc"
