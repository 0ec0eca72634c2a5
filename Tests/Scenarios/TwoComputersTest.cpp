#include <sys/prctl.h>

#include <QtNetwork/QTcpServer>
#include <csignal>
#include <cstdio>
#include <iostream>

#include "Engine/BlobStore.h"
#include "Engine/DirectConnection.h"
#include "Engine/EngineError.h"
#include "Engine/EngineFuture.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Network/NetService.h"
#include "Platform/Network/NetServiceBrowser.h"
#include "Platform/Network/NetServiceBrowserDelegate.h"
#include "Platform/Network/NetServiceDelegate.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedPerson.h"
#include "Support/PrivateNetwork.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

constexpr int Patience = 60000;
const QString ServerRole = QStringLiteral("--be-the-other-computer");
const QString OtherInterface = QStringLiteral("other-end");
const QString OwnInterface = QStringLiteral("own-end");

/// The six digits in a question.
QString codeIn(const QString &text) {
    return QRegularExpression(QStringLiteral("\\d{3} \\d{3}")).match(text).captured();
}

void ip(const QString &arguments) {
    runOrThrow(QStringLiteral("ip"), arguments.split(u' '));
}

void raise(const QString &interface, const QString &address) {
    ip(QStringLiteral("address add %1/24 dev %2").arg(address, interface));
    ip(QStringLiteral("link set %1 up").arg(interface));
}

void say(const QString &line) {
    std::cout << line.toStdString() << std::endl;
}

QString nextCommand() {
    std::string line;
    return std::getline(std::cin, line) ? QString::fromStdString(line) : QStringLiteral("end");
}

/// The person at the other computer, whose screen the test reads line by line, and who does what
/// the test says.
class OtherPerson : public TestApplication {
public:
    void ask(const Question &question, std::function<void(bool)> handler) override {
        say(QStringLiteral("question ") + question.text + u' ' + question.details);
        handler(nextCommand() == QStringLiteral("allow"));
    }
};

void revokeEveryone() {
    const QString service = DirectConnection::ClientAuthorizationServiceName;
    const QStringList clients = Keychain::shared().accounts(service).value_or(QStringList());
    for (const QString &client : clients) {
        if (Keychain::shared().removeFirst(service.toUtf8(), client.toUtf8())) {
            say(QStringLiteral("revoked ") + client);
        }
    }
}

/// The other computer: a host with a bus, a discovery daemon, a keyring and a profile of its own.
int beTheOtherComputer(int argumentCount, char **arguments) {
    say(QStringLiteral("here"));
    nextCommand();
    raise(OtherInterface, QStringLiteral("10.77.0.1"));
    DiscoveryDaemon daemon(QStringLiteral("hosta"), OtherInterface);
    daemon.startBus();
    daemon.startDaemon();
    const QApplication application(argumentCount, arguments);
    const SecretService keyring;
    TestHost host;
    const OtherPerson person;
    host.addDatabase(QStringLiteral("Garden"));
    QVDirectConnectionServer *server = host.engine().plugin().server();
    server->startServing();
    say(QStringLiteral("serving"));
    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        const QString command = nextCommand();
        if (command == QStringLiteral("revoke")) {
            revokeEveryone();
        } else if (command == QStringLiteral("stop")) {
            server->stopServing();
        } else {
            QCoreApplication::quit();
        }
    });
    return QCoreApplication::exec();
}

/// The list of a person who looks for servers.
class ServerList : public NetServiceBrowserDelegate, public NetServiceDelegate {
public:
    explicit ServerList(const QVDirectConnectionServer &own) : m_own(own) {
        m_browser.setDelegate(this);
        m_browser.searchForServicesOfTypeInDomain(DirectConnection::BonjourServiceType, QString());
    }

    void netServiceBrowserDidFindServiceMoreComing(NetServiceBrowser * /*browser*/,
                                                   const std::shared_ptr<NetService> &service,
                                                   bool /*moreComing*/) override {
        if (service->isEqual(m_own.bonjourService().get())) {
            ++ownFound;
            return;
        }
        service->setDelegate(this);
        services.append(service);
    }
    void netServiceBrowserDidRemoveServiceMoreComing(NetServiceBrowser * /*browser*/,
                                                     const std::shared_ptr<NetService> &service,
                                                     bool /*moreComing*/) override {
        services.removeAll(service);
    }
    void netServiceDidResolveAddress(const std::shared_ptr<NetService> &service) override {
        URL = Url::fromString(QStringLiteral("%1://%2:%3")
                                  .arg(QVDirectConnectionServer::URLScheme(), service->hostName())
                                  .arg(service->port()));
    }

    int ownFound = 0;
    QList<std::shared_ptr<NetService>> services;
    Url URL;

private:
    const QVDirectConnectionServer &m_own;
    NetServiceBrowser m_browser;
};

}  // namespace

/// Two computers, joined by a wire: this process and one that it starts, each with its own network
/// namespace, system bus and discovery daemon.
class TwoComputersTest : public QObject {
    Q_OBJECT

    QProcess m_other;
    std::unique_ptr<DiscoveryDaemon> m_daemon;

    void tell(const QByteArray &command) { m_other.write(command + '\n'); }

    /// The other computer's next line that begins with `start`.
    QString awaitLine(const QString &start) {
        QString line;
        const auto isThere = [&] {
            while (m_other.canReadLine() && !line.startsWith(start)) {
                line = QString::fromUtf8(m_other.readLine()).trimmed();
            }
            return line.startsWith(start);
        };
        return QTest::qWaitFor(isThere, Patience) ? line : QString();
    }

    static EngineErrorCode await(const std::shared_ptr<BlobStore> &store) {
        std::atomic<int> code = -1;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { code = error ? error->code : 0; });
        [&] { QTRY_VERIFY_WITH_TIMEOUT(code >= 0, Patience); }();
        return static_cast<EngineErrorCode>(code.load());
    }

    static std::shared_ptr<BlobStore> newStore(const std::shared_ptr<QVSyncLocation> &location) {
        return std::dynamic_pointer_cast<BlobStore>(location->createStore());
    }

    struct Fetched {
        QStringList names;
        int errorCode = -1;
    };

    static Fetched fetch(const std::shared_ptr<BlobStore> &store) {
        Fetched result;
        std::atomic<bool> isDone = false;
        store->fetchDatabasesWithCompletionHandler(
            [&](const std::optional<QVRemoteDatabases> &databases,
                const std::optional<Error> &error) {
                for (const auto &database : databases.value_or(QVRemoteDatabases())) {
                    result.names.append(database->metadata()->name());
                }
                result.errorCode = error ? error->code : 0;
                isDone = true;
            });
        [&] { QTRY_VERIFY_WITH_TIMEOUT(isDone, Patience); }();
        result.names.sort();
        return result;
    }

private Q_SLOTS:
    void initTestCase() {
        m_other.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // By this name, since the path of the file may not lead to it from the new namespace.
        m_other.start(QStringLiteral("/proc/self/exe"), {ServerRole});
        QVERIFY(!awaitLine(QStringLiteral("here")).isEmpty());
        ip(QStringLiteral("link add %1 type veth peer name %2 netns %3")
               .arg(OwnInterface, OtherInterface)
               .arg(m_other.processId()));
        raise(OwnInterface, QStringLiteral("10.77.0.2"));
        tell("join");
        m_daemon = std::make_unique<DiscoveryDaemon>(QStringLiteral("hostb"), OwnInterface);
        m_daemon->startBus();
        m_daemon->startDaemon();
        QVERIFY(!awaitLine(QStringLiteral("serving")).isEmpty());
    }

    void cleanupTestCase() {
        tell("end");
        if (!m_other.waitForFinished(Patience)) {
            m_other.kill();
            m_other.waitForFinished();
        }
        QCOMPARE(m_other.exitCode(), 0);
    }

    void aComputerFindsAnotherPairsWithItAndIsRefusedOnceRevoked() {
        TestHost host;
        AskedPerson person;
        QVDirectConnectionServer *own = host.engine().plugin().server();
        own->startServing();
        QVERIFY(own->isServing());

        // Found, and never its own.
        ServerList list(*own);
        QTRY_COMPARE_WITH_TIMEOUT(list.ownFound, 1, Patience);
        QTRY_COMPARE_WITH_TIMEOUT(list.services.size(), 1, Patience);
        QCOMPARE(list.services.first()->name(), QStringLiteral("hosta"));
        QCOMPARE(own->bonjourService()->name(), QStringLiteral("hostb"));

        // Resolved.
        list.services.first()->resolveWithTimeout(3.0);
        QTRY_COMPARE_WITH_TIMEOUT(
            list.URL.absoluteString(),
            QStringLiteral("velmora://hosta.local:%1").arg(DirectConnection::DefaultPort),
            Patience);

        // Paired: both persons see the same code.
        const std::shared_ptr<QVSyncLocation> location =
            host.addLocation(list.URL.absoluteString());
        person.answerAll([](const Question & /*question*/) { return true; });
        const std::shared_ptr<BlobStore> store = newStore(location);
        std::atomic<int> opened = -1;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { opened = error ? error->code : 0; });
        const QString question = awaitLine(QStringLiteral("question"));
        QVERIFY2(question.contains(QSysInfo::machineHostName()), qPrintable(question));
        tell("allow");
        QTRY_COMPARE_WITH_TIMEOUT(opened, 0, Patience);
        QCOMPARE(person.asked().size(), 1);
        QVERIFY(!codeIn(question).isEmpty());
        QCOMPARE(codeIn(person.asked().first().details), codeIn(question));

        // Its databases are fetched, also by another store, for which nobody is asked.
        const QStringList databases{QStringLiteral("Garden"), QStringLiteral("Inbox")};
        QCOMPARE(fetch(store).names, databases);
        const std::shared_ptr<BlobStore> other = newStore(location);
        QCOMPARE(await(other), EngineErrorCode(0));
        QCOMPARE(fetch(other).names, databases);

        // Revoked: refused on the open connection and on a new one.
        tell("revoke");
        QVERIFY(!awaitLine(QStringLiteral("revoked")).isEmpty());
        const Fetched refused = fetch(store);
        QCOMPARE(static_cast<EngineErrorCode>(refused.errorCode), EngineErrorCode::AccessDenied);
        QVERIFY(refused.names.isEmpty());
        QCOMPARE(await(newStore(location)), EngineErrorCode::AccessDenied);

        // Gone from the list when it stops serving.
        tell("stop");
        QTRY_COMPARE_WITH_TIMEOUT(list.services.size(), 0, Patience);
        QCOMPARE(list.ownFound, 1);
    }
};

int main(int argumentCount, char **arguments) {
    enterPrivateNetwork();
    prepareTestProcess();
    if (argumentCount > 1 && arguments[1] == ServerRole.toStdString()) {
        return beTheOtherComputer(argumentCount, arguments);
    }
    const QApplication application(argumentCount, arguments);
    TwoComputersTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "TwoComputersTest.moc"
