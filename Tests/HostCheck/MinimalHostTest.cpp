#include "Examples/MinimalHost/MemoryHost.h"
#include "Support/TestMain.h"

class MinimalHostTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itsEndWaitsForAllOperations() {
        constexpr int operations = 500;
        std::atomic<int> ended = 0;
        {
            const Classes classes;
            const auto store = classes.syncLocationWithURL(Url::fileURL("/"))->createStore();
            for (int i = 0; i < operations; ++i) {
                store->openWithCompletionHandler([&](const auto & /*error*/) { ++ended; });
            }
        }
        QCOMPARE(ended, operations);
    }
};

VELMORA_TEST(MinimalHostTest)
#include "MinimalHostTest.moc"
