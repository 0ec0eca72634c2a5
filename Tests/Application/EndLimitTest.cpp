#include "Application/EndLimit.h"

#include <sys/wait.h>
#include <unistd.h>

#include "Support/TestMain.h"

/// A process that hangs while it quits ends nevertheless.
class EndLimitTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aProcessThatHangsEnds() {
        constexpr int exitCode = 3;
        QElapsedTimer time;
        time.start();
        const pid_t process = fork();
        if (process == 0) {
            EndLimit::begin(exitCode);
            pause();
        }
        int status = 0;
        QCOMPARE(waitpid(process, &status, 0), process);
        QVERIFY(WIFEXITED(status));
        QCOMPARE(WEXITSTATUS(status), exitCode);
        QCOMPARE_LT(time.elapsed(), 3000);
    }
};

VELMORA_TEST(EndLimitTest)
#include "EndLimitTest.moc"
