#include "Host/HostVersion.h"
#include "Support/EventTimeout.h"
#include "Support/TestMain.h"

namespace {

struct Run {
    explicit Run(const QStringList &arguments, const QString &variable = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (!variable.isEmpty()) {
            environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
        }
        environment.insert("TMPDIR", temporary.path());
        process.setProcessEnvironment(environment);
        process.start(CHECK_HOST, arguments);
        isFinished = process.waitForFinished(EventTimeout);
        output = process.readAllStandardOutput();
        error = process.readAllStandardError();
    }
    QStringList linesOf(const QString &result) const {
        return QString::fromUtf8(output).split('\n').filter(
            QRegularExpression('^' + result + "\\b"));
    }
    QJsonArray promises() const { return QJsonDocument::fromJson(output)["promises"].toArray(); }
    const QTemporaryDir temporary;
    QProcess process;
    bool isFinished = false;
    QByteArray output;
    QByteArray error;
};

}  // namespace

class CheckHostProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theEngineKeepsEveryPromise() {
        const Run run({VELMORA_SYNC_PLUG_IN});
        QVERIFY(run.isFinished);
        QCOMPARE(run.linesOf("broken"), QStringList());
        QCOMPARE(run.linesOf("not offered"), QStringList());
        QVERIFY2(run.process.exitCode() == 0, run.error.constData());
        QVERIFY(run.linesOf("kept").size() > 100);
        QCOMPARE(run.linesOf("interface").size(), 1);
    }

    void theSmallestHostKeepsWhatItOffers() {
        const Run run({MINIMAL_HOST_PLUG_IN});
        QVERIFY(run.isFinished);
        QCOMPARE(run.linesOf("broken"), QStringList());
        QVERIFY2(run.process.exitCode() == 0, run.error.constData());
        QVERIFY(run.linesOf("kept").size() > 60);
        QVERIFY(!run.linesOf("not offered").isEmpty());
    }

    void aBrokenHostFailsAsLinesAndAsJSON() {
        const Run lines({BROKEN_PLUG_IN});
        QCOMPARE(lines.process.exitCode(), 1);
        QVERIFY(lines.linesOf("broken").join('\n').contains(
            "PZFuture.future: Returns a new future that is neither cancelled nor attached to an "
            "operation. Never null. [no future was made]"));
        const Run run({"--json", BROKEN_PLUG_IN});
        QCOMPARE(run.process.exitCode(), 1);
        QMap<QString, QString> reasons;
        for (const QJsonValue &each : run.promises()) {
            if (each["result"].toString() == "broken") {
                reasons.insert(each["key"].toString(), each["reason"].toString());
                QCOMPARE(each["header"].toString(), QString("Host/PZFuture.h"));
                QVERIFY(!each["sentence"].toString().isEmpty());
            }
        }
        QCOMPARE(reasons.value("PZFuture.future"), QString("no future was made"));
        QCOMPARE(reasons.size(), lines.linesOf("broken").size());
    }

    void aFunctionThatNeverReturnsBreaksItsPromise() {
        const QStringList arguments{"--timeout", "4", BROKEN_PLUG_IN};
        const Run run(arguments, "NEVER_RETURNS_FROM=future");
        QCOMPARE(run.process.exitCode(), 1);
        const QStringList broken = run.linesOf("broken");
        QCOMPARE(broken.size(), 1);
        QVERIFY2(broken.first().contains("PZFuture.future: ") &&
                     broken.first().endsWith("[it did not return within 4 s]"),
                 qPrintable(broken.first()));
        QVERIFY(QString::fromUtf8(run.output).endsWith(broken.first() + '\n'));
        QVERIFY(QDir(run.temporary.path()).isEmpty());
    }

    void aCrashBreaksThePromiseThatIsChecked() {
        const Run run({"--json", BROKEN_PLUG_IN}, "CRASHES=1");
        QCOMPARE(run.process.exitStatus(), QProcess::CrashExit);
        const QJsonValue last = run.promises().last();
        QCOMPARE(last["key"].toString(), QString("PZFuture.future"));
        QCOMPARE(last["result"].toString(), QString("broken"));
        QCOMPARE(last["reason"].toString(), QString("it crashed"));
        const Run lines({BROKEN_PLUG_IN}, "CRASHES=1");
        QVERIFY(lines.linesOf("broken").value(0).endsWith("[it crashed]"));
    }

    void theVersionsOfTheInterfaceAreReported() {
        const QString version = CurrentHostVersion.text();
        const Run run({"--json", MINIMAL_HOST_PLUG_IN});
        const QJsonDocument report = QJsonDocument::fromJson(run.output);
        QCOMPARE(report["interface"].toString(), version);
        QCOMPARE(report["host"].toString(), version);
    }

    void aHostThatNeverEndsIsReportedAfterItsPromises() {
        const Run run({"--json", "--timeout", "6", BROKEN_PLUG_IN}, "NEVER_RETURNS_FROM=end");
        QCOMPARE(run.process.exitCode(), 2);
        QVERIFY2(run.error.contains("QVHostPlugIn::end(): it did not return within 6 s"),
                 run.error.constData());
        QVERIFY(run.promises().size() > 100);
    }

    void aHostThatCannotBeCheckedSaysWhy_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("reason");
        QTest::newRow("none") << QStringList() << "" << QString("usage:");
        QTest::newRow("unknown option") << QStringList{"--xml"} << "" << QString("usage:");
        QTest::newRow("no time") << QStringList{BROKEN_PLUG_IN, "--timeout"} << ""
                                 << QString("usage:");
        QTest::newRow("wrong time")
            << QStringList{"--timeout", "0", BROKEN_PLUG_IN} << "" << QString("usage:");
        QTest::newRow("missing") << QStringList{"/no/plug-in.so"} << ""
                                 << QString("/no/plug-in.so");
        QTest::newRow("other") << QStringList{SYNC_PREFERENCES_PLUG_IN} << ""
                               << QString("QVHostPlugIn");
        QTest::newRow("begins without end")
            << QStringList{"--timeout", "1", BROKEN_PLUG_IN} << QString("NEVER_RETURNS_FROM=begin")
            << QString("QVHostPlugIn::begin(): it did not return within 1 s");
        QTest::newRow("of another version")
            << QStringList{BROKEN_PLUG_IN} << QString("IS_OF_OTHER_VERSION=1")
            << QString(
                   "The host was built for version %1.3 of the interface, but this program "
                   "checks version %2.")
                   .arg(CurrentHostVersion.major + 1)
                   .arg(CurrentHostVersion.text());
        QTest::newRow("failing") << QStringList{BROKEN_PLUG_IN} << QString("CANNOT_BEGIN=1")
                                 << QString("It cannot begin.");
    }
    void aHostThatCannotBeCheckedSaysWhy() {
        QFETCH(const QStringList, arguments);
        QFETCH(const QString, variable);
        QFETCH(const QString, reason);
        const Run run(arguments, variable);
        QCOMPARE(run.process.exitCode(), 2);
        QVERIFY2(QString::fromUtf8(run.error).contains(reason), run.error.constData());
        QCOMPARE(run.output, QByteArray());
    }
};

VELMORA_TEST(CheckHostProgramTest)
#include "CheckHostProgramTest.moc"
