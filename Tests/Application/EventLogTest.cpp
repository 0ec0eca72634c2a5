#include "Application/EventLog.h"

#include "Support/TestMain.h"

class EventLogTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theOldestEventsMakeRoomForNewOnes() {
        EventLog log;
        for (int i = 0; i < EventLog::Limit + 5; ++i) {
            log.append(QStringLiteral("Sync:"), QString::number(i));
        }
        QCOMPARE(log.rowCount(), EventLog::Limit);
        const auto text = [&](int row) {
            return log.data(log.index(row, 2), Qt::DisplayRole).toString();
        };
        QCOMPARE(text(0), QStringLiteral("5"));
        QCOMPARE(text(EventLog::Limit - 1), QString::number(EventLog::Limit + 4));
    }
};

VELMORA_TEST(EventLogTest)
#include "EventLogTest.moc"
