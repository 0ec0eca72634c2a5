#include "Support/TestMain.h"

class WipingAllocatorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyWayOfFreeingMemoryWipesIt() {
        QProcess program;
        program.start(QStringLiteral(WIPED_MEMORY), QStringList());
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(program.readAllStandardOutput(),
                 QByteArray("free 0\nshrink 0\ngrow 0\nempty 0\n"));
    }
};

VELMORA_TEST(WipingAllocatorTest)
#include "WipingAllocatorTest.moc"
