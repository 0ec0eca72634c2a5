#include <sys/prctl.h>
#include <unistd.h>

#include <QtNetwork/QTcpServer>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <csignal>
#include <cstdio>
#include <iostream>

#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/BlobStore.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Interface/TableView.h"
#include "Platform/Network/NetService.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedUser.h"
#include "Support/Commands.h"
#include "Support/EventTimeout.h"
#include "Support/KeychainRemoval.h"
#include "Support/PrivateNetwork.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

namespace {

const QString ServerRole = QStringLiteral("--be-the-other-computer");
const QString OtherInterface = QStringLiteral("other-end");
const QString OwnInterface = QStringLiteral("own-end");
const QString PairedServersService = QStringLiteral("Velmora Direct Connection Servers");

/// The six digits in a question.
QString codeIn(const QString &text) {
    return QRegularExpression(QStringLiteral("\\d{3}.\\d{3}")).match(text).captured();
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

/// The user of the other computer, whose questions the test reads line by line. Questions stay
/// open, as dialogs do, until the test answers the last one.
class OtherUser : public TestApplication {
public:
    Withdrawal ask(const Question &question, std::function<void(bool)> handler) override {
        say(QStringLiteral("question ") + question.text + u' ' + question.code);
        m_handler = std::move(handler);
        return [] {};
    }
    void allow() { std::exchange(m_handler, nullptr)(true); }

private:
    std::function<void(bool)> m_handler;
};

QString problemsOf(TestHost &host) {
    return Verification::problems(host.engine().verify(VerificationMode::Report)).join(u' ');
}

void revokeEveryone() {
    const QString service = DirectConnection::ClientAuthorizationServiceName;
    const QStringList clients = Keychain::shared().accounts(service).value_or(QStringList());
    for (const QString &client : clients) {
        if (KeychainRemoval::removeFirst(Keychain::shared(), service.toUtf8(), client.toUtf8())) {
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
    OtherUser user;
    host.addDatabase(QStringLiteral("Garden"));
    QVDirectConnectionServer *server = host.engine().plugin().server();
    server->startServing();
    say(QStringLiteral("serving"));
    QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        const QString command = nextCommand();
        if (command == QStringLiteral("allow")) {
            user.allow();
        } else if (command == QStringLiteral("revoke")) {
            revokeEveryone();
        } else if (command == QStringLiteral("clients")) {
            const QString service = DirectConnection::ClientAuthorizationServiceName;
            say(QStringLiteral("clients %1")
                    .arg(Keychain::shared().accounts(service).value_or(QStringList()).size()));
        } else if (command == QStringLiteral("verify")) {
            say(QStringLiteral("problems ") + problemsOf(host));
        } else if (command == QStringLiteral("stop")) {
            server->stopServing();
        } else {
            QCoreApplication::quit();
        }
    });
    return QCoreApplication::exec();
}

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
        return QTest::qWaitFor(isThere, EventTimeout) ? line : QString();
    }

    static EngineErrorCode await(const std::shared_ptr<BlobStore> &store) {
        std::atomic<int> code = -1;
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &error) { code = error ? error->code : 0; });
        [&] { QTRY_VERIFY(code >= 0); }();
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
        [&] { QTRY_VERIFY(isDone); }();
        result.names.sort();
        return result;
    }

private Q_SLOTS:
    void initTestCase() {
        registerSyncPreferencesInterface();
        m_other.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
        m_other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        // By this name, since the path of the file may not lead to it from the new namespace.
        m_other.start(QStringLiteral("/proc/self/exe"),
                      {QStringLiteral("TwoComputersTest"), ServerRole});
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
        if (!m_other.waitForFinished(EventTimeout)) {
            m_other.kill();
            m_other.waitForFinished();
        }
        QCOMPARE(m_other.exitCode(), 0);
    }

    void aComputerFindsAnotherPairsWithItAndIsRefusedOnceRevoked() {
        TestHost host;
        AskedUser user;
        QVDirectConnectionServer *own = host.engine().plugin().server();
        own->startServing();
        QVERIFY(own->isServing());

        QTRY_COMPARE(own->bonjourService()->name(), QStringLiteral("hostb"));
        QTRY_COMPARE(own->addressText(),
                     QStringLiteral("Other computers list this one as “hostb”.\n"
                                    "Address: 10.77.0.2. Port: %1")
                         .arg(own->port()));

        // Found, and never its own.
        QWidget parent;
        const auto location = host.newLocation(Url());
        const auto editor = QVDirectConnectionLocationEditor::editorWithSyncLocation(location);
        qint64 result = -1;
        editor->runLocationEditorModalForWindow(&parent, true, [&](qint64 code) { result = code; });
        auto *table = editor->window()->findChild<TableView *>(QStringLiteral("servicesTable"));
        QTRY_COMPARE(table->rowCount(), 1);
        QCOMPARE(table->item(0, 0)->text(), QStringLiteral("hosta"));

        // Resolved.
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualItemRect(table->item(0, 0)).center());
        auto *hostField = editor->window()->findChild<QLineEdit *>(QStringLiteral("hostField"));
        QTRY_COMPARE(hostField->text(), QStringLiteral("hosta.local"));
        QCOMPARE(location->URL().absoluteString(),
                 QStringLiteral("velmora://hosta.local:%1").arg(DirectConnection::DefaultPort));
        QCOMPARE(table->rowCount(), 1);

        // Accepted, which pairs the computers: both users see the same code.
        user.answerAll([](const Question & /*question*/) { return true; });
        editor->window()->findChild<QPushButton *>(QStringLiteral("acceptButton"))->click();
        QCOMPARE(result, 1);
        const QString question = awaitLine(QStringLiteral("question"));
        QVERIFY2(question.contains(QSysInfo::machineHostName()), qPrintable(question));
        tell("allow");
        QTRY_COMPARE(user.asked().size(), 1);
        QVERIFY(!codeIn(question).isEmpty());
        QCOMPARE(user.asked().first().code, codeIn(question));
        // Until this computer, too, knows that it is paired, each store would ask both users again.
        const auto isPaired = [] {
            return Keychain::shared()
                       .accounts(PairedServersService)
                       .value_or(QStringList())
                       .size() == 1;
        };
        QTRY_VERIFY(isPaired());
        tell("clients");
        QCOMPARE(awaitLine(QStringLiteral("clients")), QStringLiteral("clients 1"));

        // Its databases are fetched by a store that asks no user again.
        const QStringList databases{QStringLiteral("Garden"), QStringLiteral("Inbox")};
        const std::shared_ptr<BlobStore> store = newStore(location);
        QCOMPARE(await(store), EngineErrorCode(0));
        QCOMPARE(fetch(store).names, databases);
        QCOMPARE(user.asked().size(), 1);

        // Revoked: refused on the open connection and on a new one.
        tell("revoke");
        QVERIFY(!awaitLine(QStringLiteral("revoked")).isEmpty());
        const Fetched refused = fetch(store);
        QCOMPARE(static_cast<EngineErrorCode>(refused.errorCode), EngineErrorCode::AccessDenied);
        QVERIFY(refused.names.isEmpty());
        QCOMPARE(await(newStore(location)), EngineErrorCode::AccessDenied);

        tell("verify");
        QCOMPARE(awaitLine(QStringLiteral("problems")), QStringLiteral("problems"));
        QCOMPARE(problemsOf(host), QString());

        // Gone from the list when it stops serving.
        tell("stop");
        QTRY_COMPARE(editor->services().size(), 0);
    }
};

VELMORA_TEST_PROGRAM(TwoComputersTest)(int argumentCount, char **arguments) {
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
