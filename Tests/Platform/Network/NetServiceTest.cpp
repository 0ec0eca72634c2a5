#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <thread>

#include "Platform/Network/LocalHostName.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"
#include "Platform/Network/NetServiceDelegate.h"
#include "Support/PrivateNetwork.h"
#include "Support/TestMain.h"

namespace {

/// The type of the services of the current test function: the daemon may still know those of the
/// one before.
QString Type;

/// Records the events of a browser, and the list of services that results from them.
class Listener : public NetServiceBrowserDelegate {
public:
    struct Event {
        bool isFound;
        QString name;
        bool moreComing;
        bool operator==(const Event &) const = default;
    };

    void netServiceBrowserDidFindServiceMoreComing(NetServiceBrowser * /*browser*/,
                                                   const std::shared_ptr<NetService> &service,
                                                   bool moreComing) override {
        events.append({true, service->name(), moreComing});
        services.append(service);
        react();
    }
    void netServiceBrowserDidRemoveServiceMoreComing(NetServiceBrowser * /*browser*/,
                                                     const std::shared_ptr<NetService> &service,
                                                     bool moreComing) override {
        events.append({false, service->name(), moreComing});
        services.removeAll(service);
        react();
    }
    QStringList names() const {
        QStringList result;
        for (const auto &service : services) {
            result.append(service->name());
        }
        result.sort();
        return result;
    }

    QList<Event> events;
    QList<std::shared_ptr<NetService>> services;
    std::function<void()> react = [] {};
};

/// Records the events of a service.
class Witness : public NetServiceDelegate {
public:
    void netServiceDidResolveAddress(const std::shared_ptr<NetService> & /*service*/) override {
        ++resolved;
        react();
    }
    void netServiceDidNotResolve(const std::shared_ptr<NetService> & /*service*/) override {
        ++failed;
        react();
    }
    void netServiceDidPublish(const std::shared_ptr<NetService> & /*service*/) override {
        ++published;
    }

    int resolved = 0;
    int failed = 0;
    int published = 0;
    std::function<void()> react = [] {};
};

/// A published service of the test's own.
struct Published {
    explicit Published(const QString &name, quint16 port = 4711)
        : service(std::make_shared<NetService>(QString(), Type, name, port)) {
        service->setDelegate(&witness);
        service->publish();
    }
    ~Published() { service->setDelegate(nullptr); }
    Witness witness;
    std::shared_ptr<NetService> service;
};

/// Blocks, without running the event loop, until the daemon has sent another client everything it
/// knows; what it sent to the other clients before is then waiting in their connections.
void letTheDaemonSpeak() {
    std::thread other([] {
        const QString name = QStringLiteral("other client");
        const QString service = QStringLiteral("org.freedesktop.Avahi");
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, name);
        QEventLoop loop;
        bus.connect(service, QString(), QStringLiteral("org.freedesktop.Avahi.ServiceBrowser"),
                    QStringLiteral("AllForNow"), &loop, SLOT(quit()));
        QDBusMessage request = QDBusMessage::createMethodCall(
            service, QStringLiteral("/"), QStringLiteral("org.freedesktop.Avahi.Server"),
            QStringLiteral("ServiceBrowserNew"));
        request << -1 << -1 << Type << QString() << 0U;
        bus.call(request);
        loop.exec();
        QDBusConnection::disconnectFromBus(name);
    });
    other.join();
}

}  // namespace

class NetServiceTest : public QObject {
    Q_OBJECT

    std::unique_ptr<DiscoveryDaemon> m_daemon;
    std::unique_ptr<NetServiceBrowser> m_browser;
    Listener m_listener;
    int m_function = 0;
    static constexpr int EventTimeout = 30000;

    void search() {
        m_browser = std::make_unique<NetServiceBrowser>();
        m_browser->setDelegate(&m_listener);
        m_browser->searchForServicesOfTypeInDomain(Type, QString());
    }

private Q_SLOTS:
    void initTestCase() {
        m_daemon = std::make_unique<DiscoveryDaemon>(QStringLiteral("alone"));
        m_daemon->startBus();
    }

    void init() {
        Type = QStringLiteral("_velmora-%1._tcp").arg(++m_function);
        // A start takes a second, in which the daemon asks whether its name is in use.
        if (!m_daemon->isDaemonRunning()) {
            m_daemon->startDaemon();
        }
    }

    void cleanup() {
        m_browser.reset();
        m_listener = Listener();
    }

    void twoAreEqualWhenNameTypeAndDomainAre() {
        const NetService service(QStringLiteral("local"), Type, QStringLiteral("A"), 1);
        QVERIFY(service.isEqual(&service));
        const NetService samePlace(QStringLiteral("local"), Type, QStringLiteral("A"), 2);
        QVERIFY(service.isEqual(&samePlace));
        const NetService otherName(QStringLiteral("local"), Type, QStringLiteral("a"), 1);
        QVERIFY(!service.isEqual(&otherName));
        const NetService otherDomain(QStringLiteral("else"), Type, QStringLiteral("A"), 1);
        QVERIFY(!service.isEqual(&otherDomain));
        const NetService otherType(QStringLiteral("local"), QStringLiteral("_x._tcp"),
                                   QStringLiteral("A"), 1);
        QVERIFY(!service.isEqual(&otherType));
        QVERIFY(!service.isEqual(nullptr));
    }

    void aPublishedServiceIsFoundAndEqualToIt() {
        search();
        const Published published(QStringLiteral("Tea & Cake – 茶"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        QVERIFY(m_listener.services[0]->isEqual(published.service.get()));
        QCOMPARE(m_listener.events,
                 (QList<Listener::Event>{{true, QStringLiteral("Tea & Cake – 茶"), false}}));
        QTRY_COMPARE(published.witness.published, 1);
    }

    void eventsOfOneEventLoopTurnAreOneBatch() {
        const Published first(QStringLiteral("1"));
        const Published second(QStringLiteral("2"));
        const Published third(QStringLiteral("3"));
        QTRY_COMPARE(third.witness.published, 1);
        search();
        letTheDaemonSpeak();
        QTRY_COMPARE(m_listener.events.size(), 3);
        QCOMPARE(m_listener.names(),
                 (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
        QVERIFY(m_listener.events[0].moreComing && m_listener.events[1].moreComing);
        QVERIFY(!m_listener.events[2].moreComing);
    }

    void aServiceThatEndsIsRemovedAsTheObjectThatWasFound() {
        search();
        auto published = std::make_unique<Published>(QStringLiteral("Short"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        published.reset();
        QTRY_COMPARE(m_listener.services.size(), 0);
        QCOMPARE(m_listener.events.last(),
                 (Listener::Event{false, QStringLiteral("Short"), false}));
    }

    void stoppingWithdrawsAndPublishingAgainAnnouncesAgain() {
        search();
        const Published published(QStringLiteral("Again"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        published.service->publish();
        published.service->stop();
        QTRY_COMPARE(m_listener.services.size(), 0);
        published.service->publish();
        QTRY_COMPARE(m_listener.services.size(), 1);
    }

    void aDaemonThatDiesEmptiesTheListAtOnceAndFillsItWhenItIsBack() {
        search();
        const Published first(QStringLiteral("1"));
        const Published second(QStringLiteral("2"));
        QTRY_COMPARE(m_listener.services.size(), 2);
        m_listener.events.clear();
        m_daemon->killDaemon();
        QTRY_COMPARE(m_listener.services.size(), 0);
        QCOMPARE(m_listener.events, (QList<Listener::Event>{{false, QStringLiteral("1"), true},
                                                            {false, QStringLiteral("2"), false}}));
        m_daemon->startDaemon();
        QTRY_COMPARE(m_listener.services.size(), 2);
        QCOMPARE(m_listener.names(), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
    }

    void aBusThatEndsEmptiesTheListAndFillsItWhenItIsBack() {
        search();
        const Published published(QStringLiteral("1"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        m_daemon->stopDaemon();
        m_daemon->stopBus();
        QTRY_COMPARE(m_listener.services.size(), 0);
        m_daemon->startBus();
        m_daemon->startDaemon();
        QTRY_COMPARE(m_listener.services.size(), 1);
    }

    void withoutADaemonASearchWaitsForIt() {
        m_daemon->killDaemon();
        search();
        const Published published(QStringLiteral("Late"));
        QVERIFY(m_listener.events.isEmpty());
        m_daemon->startDaemon();
        QTRY_COMPARE(m_listener.services.size(), 1);
    }

    void resolvingGivesHostNameAndPort() {
        search();
        const Published published(QStringLiteral("Here"), 8442);
        QTRY_COMPARE(m_listener.services.size(), 1);
        const std::shared_ptr<NetService> found = m_listener.services[0];
        QCOMPARE(found->hostName(), QString());
        QCOMPARE(found->port(), 0);
        Witness witness;
        found->setDelegate(&witness);
        found->resolveWithTimeout(EventTimeout / 1000.0);
        QCOMPARE(witness.resolved, 0);
        QTRY_COMPARE(witness.resolved, 1);
        QCOMPARE(found->hostName(), QStringLiteral("alone.local"));
        QCOMPARE(found->port(), 8442);
        QCOMPARE(witness.failed, 0);
        found->setDelegate(nullptr);
    }

    void resolvingWhatIsNotThereFailsOnceAndChangesNothing() {
        const auto absent = std::make_shared<NetService>(QStringLiteral("local"), Type,
                                                         QStringLiteral("Nobody"), 5);
        Witness witness;
        absent->setDelegate(&witness);
        QElapsedTimer elapsed;
        elapsed.start();
        absent->resolveWithTimeout(0.05);
        absent->resolveWithTimeout(0.3);
        QTRY_COMPARE(witness.failed, 1);
        // The second call has replaced the first; a timer may be early by a twentieth.
        QVERIFY(elapsed.elapsed() >= 285);
        QCOMPARE(witness.resolved, 0);
        QCOMPARE(absent->hostName(), QString());
        QCOMPARE(absent->port(), 5);
    }

    void resolvingWithoutADaemonRunsIntoItsTimeout() {
        m_daemon->killDaemon();
        const auto absent =
            std::make_shared<NetService>(QStringLiteral("local"), Type, QStringLiteral("Nobody"));
        Witness witness;
        absent->setDelegate(&witness);
        QElapsedTimer elapsed;
        elapsed.start();
        absent->resolveWithTimeout(0.1);
        QTRY_COMPARE(witness.failed, 1);
        QVERIFY(elapsed.elapsed() >= 95);
    }

    void aServiceMayBeReleasedWhileItResolvesAndByItsDelegate() {
        const Published published(QStringLiteral("Here"));
        QTRY_COMPARE(published.witness.published, 1);
        const auto resolving = [&] {
            auto service = std::make_shared<NetService>(published.service->domain(), Type,
                                                        published.service->name());
            service->resolveWithTimeout(EventTimeout / 1000.0);
            return service;
        };
        resolving().reset();
        std::shared_ptr<NetService> service = resolving();
        const QPointer<NetService> watched = service.get();
        Witness witness;
        service->setDelegate(&witness);
        witness.react = [&] { service.reset(); };
        QTRY_COMPARE(witness.resolved, 1);
        QVERIFY(!watched);
    }

    void aBrowserMayBeDeletedByItsDelegate() {
        const Published first(QStringLiteral("1"));
        const Published second(QStringLiteral("2"));
        QTRY_COMPARE(second.witness.published, 1);
        search();
        letTheDaemonSpeak();
        m_listener.react = [&] { m_browser.reset(); };
        QTRY_COMPARE(m_listener.events.size(), 1);
        QVERIFY(m_listener.events[0].moreComing);
        QCoreApplication::processEvents();
        QCOMPARE(m_listener.events.size(), 1);
    }

    void aDelegateThatWasUnsetIsNotCalled() {
        search();
        const Published first(QStringLiteral("1"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        m_browser->setDelegate(nullptr);
        Listener other;
        NetServiceBrowser otherBrowser;
        otherBrowser.setDelegate(&other);
        otherBrowser.searchForServicesOfTypeInDomain(Type, QString());
        const Published second(QStringLiteral("2"));
        QTRY_COMPARE(other.services.size(), 2);
        QCOMPARE(m_listener.services.size(), 1);
    }

    void aStoppedSearchFindsNothingMore() {
        search();
        Listener other;
        NetServiceBrowser otherBrowser;
        otherBrowser.setDelegate(&other);
        otherBrowser.searchForServicesOfTypeInDomain(Type, QString());
        const Published first(QStringLiteral("1"));
        QTRY_COMPARE(m_listener.services.size(), 1);
        m_browser->stop();
        const Published second(QStringLiteral("2"));
        QTRY_COMPARE(other.services.size(), 2);
        QCOMPARE(m_listener.services.size(), 1);
    }

    void aNameInUseIsChanged() {
        const Published first(QStringLiteral("Taken"));
        QTRY_COMPARE(first.witness.published, 1);
        // With another port: two announcements of the very same would be one.
        const Published second(QStringLiteral("Taken"), 4712);
        QTRY_COMPARE(second.witness.published, 1);
        QCOMPARE(first.service->name(), QStringLiteral("Taken"));
        QCOMPARE(second.service->name(), QStringLiteral("Taken #2"));
    }

    void aServiceWithoutNameHasTheComputersAndALongOneIsCut() {
        const Published unnamed{QString()};
        const Published cut(QString(40, QChar(u'é')));
        QTRY_COMPARE(cut.witness.published, 1);
        QCOMPARE(unnamed.service->name(), QStringLiteral("alone"));
        QCOMPARE(cut.service->name(), QString(31, QChar(u'é')));
        QCOMPARE(cut.service->domain(), QStringLiteral("local"));
    }

    void aComputerOfTheLocalNetworkHasAnAddress() {
        QVERIFY(LocalHostName::isLocal(QStringLiteral("alone.local")));
        QVERIFY(LocalHostName::isLocal(QStringLiteral("Alone.LOCAL.")));
        QVERIFY(!LocalHostName::isLocal(QStringLiteral("local")));
        QVERIFY(!LocalHostName::isLocal(QStringLiteral("alone.local.example")));
        const Expected<QString> address = LocalHostName::address(
            QStringLiteral("alone.local"), std::chrono::milliseconds(EventTimeout));
        QVERIFY2(address, qPrintable(address ? QString() : address.error().localizedDescription));
        QCOMPARE(*address, QStringLiteral("127.0.0.1"));
    }

    void anAbsentComputerAndAnAbsentDaemonAreDifferentErrors() {
        std::chrono::milliseconds little(100);
        auto absent = LocalHostName::address(QStringLiteral("absent.local"), little);
        const auto isWithoutReply = [&] {
            return !absent &&
                   absent.error().code == static_cast<int>(LocalHostName::ErrorCode::NoService);
        };
        // On a busy computer the daemon itself needs longer to reply.
        while (isWithoutReply() && little < std::chrono::milliseconds(EventTimeout)) {
            little *= 4;
            absent = LocalHostName::address(QStringLiteral("absent.local"), little);
        }
        QVERIFY(!absent);
        QCOMPARE(absent.error().code, static_cast<int>(LocalHostName::ErrorCode::NotFound));
        QVERIFY(absent.error().localizedDescription.contains(QStringLiteral("absent.local")));
        m_daemon->killDaemon();
        const auto unknown = LocalHostName::address(QStringLiteral("alone.local"), little);
        QVERIFY(!unknown);
        QCOMPARE(unknown.error().code, static_cast<int>(LocalHostName::ErrorCode::NoService));
        QVERIFY2(unknown.error().localizedDescription.contains(QStringLiteral("Avahi")),
                 qPrintable(unknown.error().localizedDescription));
    }
};

VELMORA_TEST_PROGRAM(NetServiceTest)(int argumentCount, char **arguments) {
    enterPrivateNetwork();
    prepareTestProcess();
    const QCoreApplication application(argumentCount, arguments);
    NetServiceTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "NetServiceTest.moc"
