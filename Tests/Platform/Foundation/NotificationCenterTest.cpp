#include "Platform/Foundation/NotificationCenter.h"

#include "Support/TestMain.h"

class NotificationCenterTest : public QObject {
    Q_OBJECT

    const QString m_name = QStringLiteral("QVDatabaseRenamedNotification");

private Q_SLOTS:
    void anObserverReceivesNameAndObjectBeforePostReturns() {
        NotificationCenter center;
        QObject observer;
        QObject object;
        Notification seen;
        center.addObserver(&observer, m_name, [&](const Notification &n) { seen = n; });
        center.post(m_name, &object);
        QCOMPARE(seen.name, m_name);
        QCOMPARE(seen.object, &object);
        center.post(m_name, nullptr);
        QCOMPARE(seen.object, nullptr);
    }

    void onlyTheObservedNameIsDelivered() {
        NotificationCenter center;
        QObject observer;
        int count = 0;
        center.addObserver(&observer, m_name, [&](const Notification &) { ++count; });
        center.post(QStringLiteral("other"), nullptr);
        QCOMPARE(count, 0);
    }

    void observersAreCalledInTheOrderInWhichTheyWereAdded() {
        NotificationCenter center;
        QObject first;
        QObject second;
        QString order;
        center.addObserver(&first, m_name, [&](const Notification &) { order += u'1'; });
        center.addObserver(&second, m_name, [&](const Notification &) { order += u'2'; });
        center.addObserver(&first, m_name, [&](const Notification &) { order += u'3'; });
        center.post(m_name, nullptr);
        QCOMPARE(order, QStringLiteral("123"));
    }

    void addingTwiceDeliversTwiceAndOneRemovalEndsBoth() {
        NotificationCenter center;
        QObject observer;
        int count = 0;
        const auto handler = [&](const Notification &) { ++count; };
        center.addObserver(&observer, m_name, handler);
        center.addObserver(&observer, m_name, handler);
        center.post(m_name, nullptr);
        QCOMPARE(count, 2);
        center.removeObserver(&observer, m_name);
        center.post(m_name, nullptr);
        QCOMPARE(count, 2);
    }

    void aRemovalLeavesOtherNamesAndOtherObservers() {
        NotificationCenter center;
        QObject observer;
        QObject other;
        const QString otherName = QStringLiteral("other");
        QString seen;
        center.addObserver(&observer, m_name, [&](const Notification &) { seen += u'a'; });
        center.addObserver(&observer, otherName, [&](const Notification &) { seen += u'b'; });
        center.addObserver(&other, m_name, [&](const Notification &) { seen += u'c'; });
        center.removeObserver(&observer, m_name);
        center.post(m_name, nullptr);
        center.post(otherName, nullptr);
        QCOMPARE(seen, QStringLiteral("cb"));
        center.removeObserver(&observer);
        center.post(m_name, nullptr);
        center.post(otherName, nullptr);
        QCOMPARE(seen, QStringLiteral("cbc"));
    }

    void removingAnObserverOfNothingKeepsTheOthers() {
        NotificationCenter center;
        QObject observer;
        QObject other;
        int count = 0;
        center.addObserver(&other, m_name, [&](const Notification &) { ++count; });
        center.removeObserver(&observer, m_name);
        center.removeObserver(&observer);
        center.post(m_name, nullptr);
        QCOMPARE(count, 1);
    }

    void aDestroyedObserverIsNotCalledAndItsHandlerIsReleased() {
        NotificationCenter center;
        const auto kept = std::make_shared<int>(0);
        {
            QObject observer;
            center.addObserver(&observer, m_name, [kept](const Notification &) { ++*kept; });
            QCOMPARE(kept.use_count(), 2L);
        }
        center.post(m_name, nullptr);
        QCOMPARE(*kept, 0);
        QCOMPARE(kept.use_count(), 1L);
    }

    void anObserverRemovedByAnEarlierOneIsNotCalled() {
        NotificationCenter center;
        QObject first;
        auto second = std::make_unique<QObject>();
        QObject third;
        int count = 0;
        center.addObserver(&first, m_name, [&](const Notification &) {
            second.reset();
            center.removeObserver(&third);
        });
        center.addObserver(second.get(), m_name, [&](const Notification &) { ++count; });
        center.addObserver(&third, m_name, [&](const Notification &) { ++count; });
        center.post(m_name, nullptr);
        QCOMPARE(count, 0);
    }

    void aHandlerMayRemoveOrDeleteItsOwnObserver() {
        NotificationCenter center;
        auto *observer = new QObject;
        int count = 0;
        center.addObserver(observer, m_name, [&](const Notification &) {
            delete std::exchange(observer, nullptr);
            ++count;
        });
        center.post(m_name, nullptr);
        center.post(m_name, nullptr);
        QCOMPARE(count, 1);
    }

    void aHandlerMayAddObserversAndPost() {
        NotificationCenter center;
        QObject observer;
        QString seen;
        const QString inner = QStringLiteral("inner");
        center.addObserver(&observer, m_name, [&](const Notification &) {
            seen += u'a';
            center.addObserver(&observer, m_name, [&](const Notification &) { seen += u'c'; });
            center.addObserver(&observer, inner, [&](const Notification &) { seen += u'b'; });
            center.post(inner, nullptr);
        });
        center.post(m_name, nullptr);
        QCOMPARE(seen, QStringLiteral("ab"));
        center.removeObserver(&observer, inner);
        center.post(m_name, nullptr);
        QCOMPARE(seen, QStringLiteral("ababc"));
    }

    void theDefaultCenterDeliversBetweenUnrelatedObjects() {
        QObject observer;
        int count = 0;
        NotificationCenter::defaultCenter().addObserver(&observer, m_name,
                                                        [&](const Notification &) { ++count; });
        NotificationCenter().post(m_name, nullptr);
        QCOMPARE(count, 0);
        NotificationCenter::defaultCenter().post(m_name, nullptr);
        QCOMPARE(count, 1);
    }
};

VELMORA_TEST(NotificationCenterTest)
#include "NotificationCenterTest.moc"
