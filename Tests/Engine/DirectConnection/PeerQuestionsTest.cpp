#include "Engine/DirectConnection/PeerQuestions.h"

#include "Support/TestMain.h"

using namespace std::chrono_literals;

class PeerQuestionsTest : public QObject {
    Q_OBJECT

    static QHostAddress peer(quint32 number) { return QHostAddress(0x0a000000U + number); }

private Q_SLOTS:
    void oneQuestionIsOpenAtATime() {
        PeerQuestions questions({0ms, 0ms}, 10);
        QVERIFY(questions.open(peer(1)));
        QVERIFY(!questions.open(peer(1)));
        QVERIFY(!questions.open(peer(2)));
        questions.close(true);
        QVERIFY(questions.open(peer(2)));
    }

    void onlyThePeerThatWasRefusedHasToWait() {
        PeerQuestions questions({1h, 2h}, 10);
        QVERIFY(questions.open(peer(1)));
        questions.close(false);
        QVERIFY(!questions.open(peer(1)));
        QVERIFY(questions.open(peer(2)));
        questions.close(true);
        QVERIFY(questions.open(peer(2)));
        questions.close(false);
        QVERIFY(!questions.open(peer(1)));
        QVERIFY(!questions.open(peer(2)));
    }

    void allPeersTogetherCauseAFewQuestionsAnHour() {
        constexpr int most = 5;
        PeerQuestions questions({1ms, 1ms}, most);
        for (quint32 i = 0; i < most; ++i) {
            QVERIFY(questions.open(peer(i)));
            questions.close(false);
        }
        QVERIFY(!questions.open(peer(most)));
    }

    void theOldestOfManyPeersIsForgotten() {
        PeerQuestions questions({1h, 1h}, 1000);
        for (quint32 i = 0; i <= PeerQuestions::MostPeers; ++i) {
            QVERIFY(questions.open(peer(i)));
            questions.close(false);
        }
        QVERIFY(!questions.open(peer(1)));
        QVERIFY(questions.open(peer(0)));
    }
};

VELMORA_TEST(PeerQuestionsTest)
#include "PeerQuestionsTest.moc"
