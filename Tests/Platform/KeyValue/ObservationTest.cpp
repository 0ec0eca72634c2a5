#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestMain.h"

#include <thread>

using KeyValue::Deliver;
using KeyValue::Observation;
using KeyValue::observe;

/// A link of a chain: it has a number and may hold the next one.
class Link : public QObject {
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(std::shared_ptr<Link> next READ next WRITE setNext NOTIFY nextChanged)
    Q_PROPERTY(Link *raw READ raw WRITE setRaw NOTIFY rawChanged)
    Q_PROPERTY(QVariant anything READ anything WRITE setAnything NOTIFY anythingChanged)
    Q_PROPERTY(QString title READ title)

public:
    explicit Link(int number = 0) : m_number(number) {}

    int number() const { return m_number; }
    void setNumber(int number) {
        m_number = number;
        KeyValue::announce<&Link::numberChanged>(this);
    }
    std::shared_ptr<Link> next() const { return m_next; }
    void setNext(const std::shared_ptr<Link> &next) {
        m_next = next;
        KeyValue::announce<&Link::nextChanged>(this);
    }
    Link *raw() const { return m_raw; }
    void setRaw(Link *raw) {
        m_raw = raw;
        KeyValue::announce<&Link::rawChanged>(this);
    }
    QVariant anything() const { return m_anything; }
    void setAnything(const QVariant &anything) {
        m_anything = anything;
        KeyValue::announce<&Link::anythingChanged>(this);
    }
    QString title() const {
        ++titleReads;
        return QString::number(m_number);
    }

    mutable int titleReads = 0;

Q_SIGNALS:
    void numberChanged();
    void nextChanged();
    void rawChanged();
    void anythingChanged();

private:
    int m_number;
    std::shared_ptr<Link> m_next;
    QPointer<Link> m_raw;
    QVariant m_anything;
};

/// A link whose setter does not announce what the link it writes to announces.
class Relay : public QObject {
    Q_OBJECT
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)
    Q_PROPERTY(std::shared_ptr<Link> link READ link WRITE setLink NOTIFY linkChanged)

public:
    Relay() { KeyValue::followDependencies(this); }
    int number() const { return m_link ? m_link->number() : 0; }
    void setNumber(int number) {
        if (m_link) {
            m_link->setNumber(number);
        }
    }
    std::shared_ptr<Link> link() const { return m_link; }
    void setLink(const std::shared_ptr<Link> &link) {
        m_link = link;
        KeyValue::announce<&Relay::linkChanged>(this);
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingNumber() {
        return {"link", "link.number"};
    }

Q_SIGNALS:
    void numberChanged();
    void linkChanged();

private:
    std::shared_ptr<Link> m_link;
};

class ObservationTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void eachSetIsDeliveredAlsoOfAnEqualValue() {
        Link link;
        QList<int> seen;
        const auto observation = observe(&link, "number", [&] { seen.append(link.number()); });
        link.setNumber(1);
        link.setNumber(1);
        link.setNumber(2);
        QCOMPARE(seen, (QList<int>{1, 1, 2}));
    }

    void anInitialDeliveryComesBeforeObserveReturnsAndOnlyWhenAskedFor() {
        Link link(7);
        QList<int> seen;
        const auto quiet = observe(&link, "number", [&] { seen.append(-1); });
        QCOMPARE(seen, QList<int>{});
        const auto eager = observe(
            &link, "number", [&] { seen.append(link.number()); }, Deliver::InitialAndChanges);
        QCOMPARE(seen, QList<int>{7});
    }

    void theInitialDeliveryAndLaterOnesShareTheHandlersOwnState() {
        Link link;
        QList<int> seen;
        const auto observation = observe(
            &link, "number", [&seen, count = 0]() mutable { seen.append(++count); },
            Deliver::InitialAndChanges);
        link.setNumber(1);
        QCOMPARE(seen, (QList<int>{1, 2}));
    }

    void observersAreNotifiedInTheOrderOfTheirRegistration() {
        Link link;
        QString order;
        const auto a = observe(&link, "number", [&] { order += u'a'; });
        const auto b = observe(&link, "number", [&] { order += u'b'; });
        link.setNumber(1);
        QCOMPARE(order, QStringLiteral("ab"));
    }

    void signalSpiesAndPlainConnectionsReceiveTheAnnouncementToo() {
        Link link;
        QSignalSpy spy(&link, &Link::numberChanged);
        link.setNumber(0);
        QCOMPARE(spy.size(), 1);
    }

    void aPlainEmissionIsDeliveredToObservers() {
        Link link;
        int count = 0;
        const auto observation = observe(&link, "number", [&] { ++count; });
        Q_EMIT link.numberChanged();
        QCOMPARE(count, 1);
    }

    void stoppingEndsTheDelivery() {
        Link link;
        int count = 0;
        auto observation = observe(&link, "number", [&] { ++count; });
        link.setNumber(1);
        observation.stop();
        observation.stop();
        link.setNumber(2);
        QCOMPARE(count, 1);
    }

    void anObservationStopsWhenItIsDestroyedOrReplacedAndNotWhenItIsMoved() {
        Link link;
        int count = 0;
        {
            auto first = observe(&link, "number", [&] { count += 1; });
            const Observation second = std::move(first);
            link.setNumber(1);
            QCOMPARE(count, 1);
        }
        link.setNumber(2);
        QCOMPARE(count, 1);

        auto observation = observe(&link, "number", [&] { count += 10; });
        observation = observe(&link, "number", [&] { count += 100; });
        link.setNumber(3);
        QCOMPARE(count, 101);
    }

    void anObservationStoppedByAnEarlierObserverIsNotDeliveredAnyMore() {
        Link link;
        int count = 0;
        Observation later;
        const auto earlier = observe(&link, "number", [&] { later.stop(); });
        later = observe(&link, "number", [&] { ++count; });
        link.setNumber(1);
        QCOMPARE(count, 0);
    }

    void aHandlerMayStopItselfAndKeepsWhatItCaptured() {
        Link link;
        QString seen;
        Observation observation;
        const QString captured = QStringLiteral("still here");
        observation = observe(&link, "number", [&, captured] {
            observation.stop();
            seen += captured;
        });
        link.setNumber(1);
        link.setNumber(2);
        QCOMPARE(seen, captured);
    }

    void aHandlerThatSetsAgainAndThenStopsIsNotCalledForIt() {
        Link link;
        int count = 0;
        Observation observation;
        observation = observe(&link, "number", [&] {
            ++count;
            observation.stop();
            link.setNumber(link.number() + 1);
        });
        link.setNumber(1);
        QCOMPARE(count, 1);
        QCOMPARE(link.number(), 2);
    }

    void anObserverAddedByAHandlerReceivesTheNextChange() {
        Link link;
        QStringList seen;
        std::vector<Observation> added;
        const auto observation = observe(&link, "number", [&] {
            added.push_back(
                observe(&link, "number", [&] { seen.append(QString::number(link.number())); }));
        });
        link.setNumber(1);
        QCOMPARE(seen, QStringList{});
        link.setNumber(2);
        QCOMPARE(seen, QStringList{QStringLiteral("2")});
    }

    void aHandlerMaySetTheKeyAgain() {
        Link link;
        QList<int> first;
        QList<int> second;
        const auto a = observe(&link, "number", [&] {
            first.append(link.number());
            if (link.number() < 3) {
                link.setNumber(link.number() + 1);
            }
        });
        const auto b = observe(&link, "number", [&] { second.append(link.number()); });
        link.setNumber(1);
        QCOMPARE(first, (QList<int>{1, 2, 3}));
        QCOMPARE(second, (QList<int>{3, 3, 3}));
    }

    void aHandlerMayStopTheOuterDeliveryFromANestedOne() {
        Link link;
        int count = 0;
        Observation observation;
        observation = observe(&link, "number", [&] {
            ++count;
            if (count == 1) {
                link.setNumber(2);
            } else {
                observation.stop();
            }
        });
        link.setNumber(1);
        link.setNumber(3);
        QCOMPARE(count, 2);
    }

    void aHandlerMayDeleteTheObservedObject() {
        auto *link = new Link;
        int count = 0;
        int later = 0;
        const auto observation = observe(link, "number", [&] {
            ++count;
            delete link;
        });
        const auto other = observe(link, "number", [&] { ++later; });
        link->setNumber(1);
        QCOMPARE(count, 1);
        QCOMPARE(later, 0);
    }

    void aHandlerMayDestroyTheObjectThatHoldsItsObservation() {
        struct Holder {
            Observation observation;
            int count = 0;
        };
        Link link;
        auto holder = std::make_unique<Holder>();
        int count = 0;
        holder->observation = observe(&link, "number", [&] {
            holder.reset();
            ++count;
        });
        link.setNumber(1);
        link.setNumber(2);
        QCOMPARE(count, 1);
    }

    void theObservedObjectMayDieFirst() {
        auto link = std::make_unique<Link>();
        int count = 0;
        auto observation = observe(link.get(), "number", [&] { ++count; });
        auto path = observe(link.get(), "next.number", [&] { ++count; });
        link.reset();
        observation.stop();
        QCOMPARE(count, 0);
    }

    void everyPartOfAPathIsFollowed() {
        Link head;
        const auto middle = std::make_shared<Link>(1);
        const auto end = std::make_shared<Link>(2);
        QList<QVariant> seen;
        const auto observation = observe(&head, "next.next.number", [&] {
            seen.append(KeyValue::value(&head, "next.next.number"));
        });
        head.setNext(middle);
        middle->setNext(end);
        end->setNumber(3);
        head.setNext(nullptr);
        middle->setNext(nullptr);
        end->setNumber(4);
        QCOMPARE(seen, (QList<QVariant>{QVariant(), 2, 3, QVariant()}));
    }

    void aReplacedMiddleObjectIsNoLongerObserved() {
        Link head;
        const auto before = std::make_shared<Link>(1);
        const auto after = std::make_shared<Link>(2);
        head.setNext(before);
        int count = 0;
        const auto observation = observe(&head, "next.number", [&] { ++count; });
        head.setNext(after);
        QCOMPARE(count, 1);
        before->setNumber(10);
        QCOMPARE(count, 1);
        after->setNumber(20);
        QCOMPARE(count, 2);
    }

    void aMiddleObjectDestroyedWithItsReplacementIsReleased() {
        Link head;
        head.setNext(std::make_shared<Link>(1));
        int count = 0;
        const auto observation = observe(&head, "next.number", [&] { ++count; });
        head.setNext(std::make_shared<Link>(2));
        head.next()->setNumber(3);
        QCOMPARE(count, 2);
    }

    void anObjectInThePathMayBeDestroyedWithoutNotification() {
        Link head;
        auto middle = std::make_unique<Link>(1);
        head.setRaw(middle.get());
        int count = 0;
        auto observation = observe(&head, "raw.number", [&] { ++count; });
        middle.reset();
        QCOMPARE(KeyValue::value(&head, "raw.number"), QVariant());
        Link other(2);
        head.setRaw(&other);
        other.setNumber(3);
        QCOMPARE(count, 2);
    }

    void aHandlerMayReplaceTheMiddleOfItsOwnPath() {
        Link head;
        head.setNext(std::make_shared<Link>(1));
        QList<QVariant> seen;
        const auto observation = observe(&head, "next.number", [&] {
            seen.append(KeyValue::value(&head, "next.number"));
            if (seen.size() == 1) {
                head.setNext(std::make_shared<Link>(5));
            }
        });
        head.next()->setNumber(2);
        head.next()->setNumber(6);
        QCOMPARE(seen, (QList<QVariant>{2, 5, 6}));
    }

    void aHandlerMayStopItsPathWhileTheEndAnnounces() {
        Link head;
        const auto end = std::make_shared<Link>(1);
        head.setNext(end);
        int count = 0;
        Observation observation;
        observation = observe(&head, "next.number", [&] {
            ++count;
            observation.stop();
        });
        end->setNumber(2);
        end->setNumber(3);
        head.setNext(nullptr);
        QCOMPARE(count, 1);
    }

    void aHandlerMayDeleteTheHeadOfItsPath() {
        auto *head = new Link;
        const auto end = std::make_shared<Link>(1);
        head->setNext(end);
        int count = 0;
        const auto observation = observe(head, "next.number", [&] {
            ++count;
            delete head;
        });
        end->setNumber(2);
        end->setNumber(3);
        QCOMPARE(count, 1);
    }

    void objectsInVariantsAreFollowed() {
        Link head;
        const auto end = std::make_shared<Link>(1);
        int count = 0;
        const auto observation = observe(&head, "anything.number", [&] { ++count; });
        head.setAnything(QVariant::fromValue(end));
        end->setNumber(2);
        QCOMPARE(count, 2);
    }

    void aKeyWithoutNotifyIsReadOnceAndNeverAnnounces() {
        Link link(1);
        int count = 0;
        QVariant seen;
        const auto observation = observe(
            &link, "title",
            [&] {
                ++count;
                seen = KeyValue::value(&link, "title");
            },
            Deliver::InitialAndChanges);
        link.setNumber(2);
        QCOMPARE(count, 1);
        QCOMPARE(link.titleReads, 1);
        QCOMPARE(seen, QVariant(QStringLiteral("1")));
    }

    void aKeyThatDoesNotExistCannotBeObserved() {
        Link link;
        const auto nothing = [] {};
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)observe(&link, "missing", nothing));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)observe(&link, "missing.number", nothing));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)observe(nullptr, "number", nothing));
        link.setNext(std::make_shared<Link>());
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)observe(&link, "next.missing", nothing));
    }

    void aPathThroughAValueThatIsNoObjectCannotBeObserved() {
        Link link;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)observe(&link, "number.next", [] {}));
    }

    void anObjectWithoutTheKeyInAPathRaisesAnAssertionAndTheNextOneIsObservedAgain() {
        Link head;
        QObject wrong;
        const auto end = std::make_shared<Link>(1);
        int count = 0;
        const auto observation = observe(&head, "anything.number", [&] { ++count; });
        head.setAnything(QVariant::fromValue(end));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, head.setAnything(QVariant::fromValue(&wrong)));
        end->setNumber(5);
        QCOMPARE(count, 1);
        head.setAnything(QVariant::fromValue(end));
        end->setNumber(2);
        QCOMPARE(count, 3);
    }

    void anExceptionFromAHandlerReachesTheSetterAndLeavesTheObservationSound() {
        Link link;
        int count = 0;
        bool isThrowing = true;
        const auto observation = observe(&link, "number", [&] {
            ++count;
            if (isThrowing) {
                failAssertion(QStringLiteral("no"), "method", "file");
            }
        });
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, link.setNumber(1));
        QCOMPARE(link.number(), 1);
        isThrowing = false;
        link.setNumber(2);
        QCOMPARE(count, 2);
    }

    void aHandlerMayStopItselfAndThrow() {
        Link link;
        const auto kept = std::make_shared<int>(0);
        Observation observation;
        observation = observe(&link, "number", [&, kept] {
            observation.stop();
            failAssertion(QStringLiteral("no"), "method", "file");
        });
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, link.setNumber(1));
        QCOMPARE(kept.use_count(), 1);
        link.setNumber(2);
    }

    void anExceptionFromTheInitialDeliveryLeavesNoObservation() {
        Link link;
        int count = 0;
        const auto handler = [&] {
            ++count;
            failAssertion(QStringLiteral("no"), "method", "file");
        };
        QVERIFY_THROWS_EXCEPTION(
            AssertionFailure, (void)observe(&link, "number", handler, Deliver::InitialAndChanges));
        link.setNumber(1);
        QCOMPARE(count, 1);
    }

    void stoppingReleasesWhatTheHandlerCaptured() {
        Link link;
        const auto kept = std::make_shared<int>(0);
        auto observation = observe(&link, "next.number", [kept] {});
        QVERIFY(kept.use_count() > 1);
        observation.stop();
        QCOMPARE(kept.use_count(), 1);
    }

    void aChangeIsDeliveredOnTheThreadThatMakesIt() {
        Link link;
        std::thread::id seen;
        const auto observation =
            observe(&link, "number", [&] { seen = std::this_thread::get_id(); });
        std::thread::id other;
        std::thread([&] {
            other = std::this_thread::get_id();
            link.setNumber(1);
        }).join();
        QCOMPARE(seen, other);
        link.setNumber(2);
        QCOMPARE(seen, std::this_thread::get_id());
    }

    void threadsMayAnnounceTheKeysOfTheirOwnObjectsAtOnce() {
        const auto work = [](int *count) {
            Link link;
            Relay relay;
            relay.setLink(std::make_shared<Link>());
            const auto observation = observe(&link, "number", [&] { ++*count; });
            const auto relayed = observe(&relay, "number", [&] { ++*count; });
            for (int i = 0; i < 1000; ++i) {
                link.setNumber(i);
                relay.link()->setNumber(i);
            }
        };
        int first = 0;
        int second = 0;
        std::thread a(work, &first);
        std::thread b(work, &second);
        a.join();
        b.join();
        QCOMPARE(first, 2000);
        QCOMPARE(second, 2000);
    }

    void aDerivedSetterAnnouncesOnceThroughWhatItWritesTo() {
        Relay relay;
        relay.setLink(std::make_shared<Link>(1));
        QSignalSpy spy(&relay, &Relay::numberChanged);
        relay.setNumber(5);
        QCOMPARE(relay.number(), 5);
        QCOMPARE(spy.size(), 1);
        relay.setLink(nullptr);
        QCOMPARE(spy.size(), 2);
        relay.setNumber(6);
        QCOMPARE(spy.size(), 2);
    }
};

VELMORA_TEST(ObservationTest)
#include "ObservationTest.moc"
