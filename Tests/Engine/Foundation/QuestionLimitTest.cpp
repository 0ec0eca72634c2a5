#include "Engine/Foundation/QuestionLimit.h"

#include "Support/TestMain.h"

using namespace std::chrono_literals;

class QuestionLimitTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void oneQuestionIsOpenAtATime() {
        QuestionLimit limit({0ms, 0ms});
        QVERIFY(limit.open());
        QVERIFY(!limit.open());
        limit.close(false);
        QVERIFY(limit.open());
    }

    void aQuestionThatWasNotAcceptedIsFollowedByAPause() {
        QuestionLimit limit({1h, 2h});
        QVERIFY(limit.open());
        limit.close(true);
        QVERIFY(limit.open());
        limit.close(false);
        QVERIFY(!limit.open());
        limit.close(true);
        QVERIFY(!limit.open());
    }

    void aPauseEnds() {
        QuestionLimit limit({1ms, 1ms});
        for (int i = 0; i < 3; ++i) {
            QVERIFY(QTest::qWaitFor([&] { return limit.open(); }));
            limit.close(false);
        }
    }
};

VELMORA_TEST(QuestionLimitTest)
#include "QuestionLimitTest.moc"
