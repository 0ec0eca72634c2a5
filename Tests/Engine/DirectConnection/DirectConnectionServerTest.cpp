#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <QtCore/QCborArray>
#include <QtCore/QCryptographicHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSemaphore>
#include <QtNetwork/QNetworkInterface>
#include <QtNetwork/QSslSocket>
#include <QtNetwork/QTcpServer>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionClients.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/DirectConnection/ServedStoreObserver.h"
#include "Engine/Foundation/EngineError.h"
#include "Host/QVServedDatabase.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Network/NetService.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedUser.h"
#include "Support/EventTimeout.h"
#include "Support/FailingTable.h"
#include "Support/FreePort.h"
#include "Support/KeychainRemoval.h"
#include "Support/MemoryStore.h"
#include "Support/SecretService.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

using namespace DirectConnectionMessage;

namespace {

const QString ClientName = QStringLiteral("kim at desk");
const QString PortNumberKey = QStringLiteral("QVDirectConnectionServerPortNumber");
const QString EnabledKey = QStringLiteral("QVDirectConnectionServerEnabled");

bool isOneOfUs(const Question & /*question*/) {
    return true;
}

bool isAStranger(const Question & /*question*/) {
    return false;
}

/// A client that sends what a test specifies.
class Client {
public:
    explicit Client(quint16 port, QSsl::SslProtocol protocol = QSsl::SecureProtocols) {
        m_socket.setProtocol(protocol);
        m_socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        m_socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), port);
    }
    /// A client at another address of this computer, which must begin with 127.
    Client(quint16 port, const char *address) {
        const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in end{};
        end.sin_family = AF_INET;
        inet_pton(AF_INET, address, &end.sin_addr);
        ::bind(descriptor, reinterpret_cast<const sockaddr *>(&end), sizeof end);
        inet_pton(AF_INET, "127.0.0.1", &end.sin_addr);
        end.sin_port = htons(port);
        ::connect(descriptor, reinterpret_cast<const sockaddr *>(&end), sizeof end);
        m_socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        m_socket.setSocketDescriptor(descriptor);
        m_socket.startClientEncryption();
    }
    ~Client() { m_socket.abort(); }

    bool waitForEncryption() {
        return QTest::qWaitFor([this] { return m_socket.isEncrypted() || hasEnded(); },
                               EventTimeout) &&
               m_socket.isEncrypted();
    }
    void sendBytes(const QByteArray &bytes) { m_socket.write(bytes); }
    void send(const QCborMap &message) { sendBytes(encode(message)); }

    /// Returns the next response; an empty map if the server closes the connection without one.
    QCborMap answer() {
        const bool isThere =
            QTest::qWaitFor([this] { return isAnswerThere() || hasEnded(); }, EventTimeout);
        if (!isThere || !isAnswerThere()) {
            return {};
        }
        const qsizetype size = length(m_received);
        Received message =
            decode(m_received.mid(LengthSize, size), ResponseMemory).value_or(Received());
        m_received.remove(0, LengthSize + size);
        if (message.contents) {
            message.values[Contents] = *message.contents;
        }
        return message.values;
    }
    QString answerTo(const QCborMap &message) {
        send(message);
        return answer()[Type].toString();
    }
    /// Whether the server ends the connection without having said anything more.
    bool endsInSilence() {
        return QTest::qWaitFor([this] { return hasEnded(); }, EventTimeout) && !receive();
    }
    bool hasEnded() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }
    QByteArray fingerprint() const {
        return DirectConnectionIdentity::fingerprint(m_socket.peerCertificate().toDer());
    }
    QSslSocket &socket() { return m_socket; }

private:
    qsizetype receive() {
        m_received += m_socket.readAll();
        return m_received.size();
    }
    bool isAnswerThere() {
        return receive() >= LengthSize && m_received.size() >= LengthSize + length(m_received);
    }

    QSslSocket m_socket;
    QByteArray m_received;
};

QCborMap hello(const QString &name, const QByteArray &secret) {
    return {{Type, Hello}, {Name, name}, {Secret, secret}};
}

QCborMap list(const QString &folder) {
    return {{Type, List}, {Folder, folder}};
}

QCborMap read(const QString &name) {
    return {{Type, Read}, {Name, name}, {SizeLimit, 1000}};
}

QCborMap write(const QString &name, const QByteArray &contents) {
    return {{Type, Write}, {Name, name}, {Contents, contents}};
}

QStringList authorizedClients() {
    return Keychain::shared()
        .accounts(DirectConnection::ClientAuthorizationServiceName)
        .value_or(QStringList());
}

QElapsedTimer started() {
    QElapsedTimer timer;
    timer.start();
    return timer;
}

DirectConnectionPairing newClient(const QString &name = ClientName) {
    DirectConnectionPairing client;
    client.clientName = name;
    client.clientNonce = DirectConnectionPairing::random();
    client.clientSecret = DirectConnectionPairing::random();
    return client;
}

QCborMap pairMessage(const DirectConnectionPairing &client) {
    return {{Type, Pair}, {Name, client.clientName}, {Commitment, client.commitment()}};
}

QCborMap revealMessage(const DirectConnectionPairing &client) {
    return {
        {Type, Reveal}, {Nonce, client.clientNonce}, {Secret, client.clientSecret.toByteArray()}};
}

}  // namespace

class DirectConnectionServerTest : public QObject {
    Q_OBJECT

    /// An observer that lets every client proceed.
    struct Observer : ServedStoreObserver {
        void clientWillRead(std::function<void()> proceed) override { proceed(); }
        void clientsDidWrite() override { ++writes; }
        int writes = 0;
    };

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<AskedUser> m_user;
    quint16 m_port = 0;

    DirectConnectionServer &server() {
        return dynamic_cast<DirectConnectionServer &>(*m_host->engine().plugin().server());
    }

    void serve(const DirectConnection::Limits &limits = {}) {
        server().setLimits(limits);
        server().setPort(m_port);
        server().startServing();
        QVERIFY(server().isServing());
    }

    /// Sends what a client that is new sends up to the question.
    static void askFor(Client &connection, DirectConnectionPairing &client) {
        QVERIFY(connection.waitForEncryption());
        client.serverFingerprint = connection.fingerprint();
        connection.send(pairMessage(client));
        client.serverNonce = connection.answer()[Nonce].toByteArray();
        QCOMPARE(client.serverNonce.size(), DirectConnectionPairing::RandomSize);
        connection.send(revealMessage(client));
    }

    std::shared_ptr<QVServedDatabase> servedDatabase(const QString &name) {
        for (const QVariant &each : server().databases()) {
            const auto database = each.value<std::shared_ptr<QVServedDatabase>>();
            if (database->name() == name) {
                return database;
            }
        }
        return nullptr;
    }

    QString package() const {
        return m_host->directory() + QStringLiteral("/Direct Connection.qvSyncStore");
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_user = std::make_unique<AskedUser>();
        m_port = freePort();
    }

    void cleanup() {
        Keychain &keychain = Keychain::shared();
        const QString service = DirectConnection::ClientAuthorizationServiceName;
        for (const QString &account : keychain.accounts(service).value_or(QStringList())) {
            KeychainRemoval::removeFirst(keychain, service.toUtf8(), account.toUtf8());
        }
        removeDefault(PortNumberKey);
        removeDefault(EnabledKey);
        m_user.reset();
        m_host.reset();
    }

    void aFreshServerDoesNotServeAndHasTheDefaultPort() {
        QVERIFY(!server().isServing());
        QCOMPARE(server().port(), DirectConnection::DefaultPort);
        QVERIFY(!server().bonjourService());
    }

    void servingIsAnnouncedToObserversAndOnTheNetwork() {
        server().setPort(m_port);
        QSignalSpy serving(&server(), &QVDirectConnectionServer::servingChanged);
        server().startServing();
        QVERIFY(server().isServing());
        QCOMPARE(serving.count(), 1);
        const std::shared_ptr<NetService> service = server().bonjourService();
        QVERIFY(service);
        QCOMPARE(service->type(), DirectConnection::BonjourServiceType);
        QCOMPARE(service->port(), m_port);
        QVERIFY(Client(m_port).waitForEncryption());
        server().stopServing();
        QVERIFY(!server().isServing());
        QCOMPARE(serving.count(), 2);
        QVERIFY(!server().bonjourService());
        QVERIFY(!Client(m_port).waitForEncryption());
    }

    void theAddressIsStatedWhileItServes() {
        QCOMPARE(server().addressText(), QString());
        const QSignalSpy changes(&server(), &QVDirectConnectionServer::addressTextChanged);
        serve();
        const QString text = server().addressText();
        QVERIFY2(text.contains(QString::number(m_port)), qPrintable(text));
        for (const QHostAddress &address : QNetworkInterface::allAddresses()) {
            const bool isStated = address.protocol() == QAbstractSocket::IPv4Protocol &&
                                  !address.isLoopback() && !address.isLinkLocal();
            QVERIFY2(!isStated || text.contains(address.toString()), qPrintable(text));
        }
        server().stopServing();
        QCOMPARE(server().addressText(), QString());
        QCOMPARE(changes.count(), 2);
    }

    void withoutAvahiTheAddressIsToBeEntered() {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/there/is/no/bus");
        serve();
        if (!server().addressText().contains(QStringLiteral("in no network"))) {
            QTRY_VERIFY2(server().addressText().contains(
                             QStringLiteral("Other computers do not find this one by themselves, "
                                            "because the service “Avahi” is not running")),
                         qPrintable(server().addressText()));
        }
        QVERIFY(server().addressText().contains(QString::number(m_port)));
        server().stopServing();
        QCOMPARE(server().addressText(), QString());
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
    }

    void startingTwiceAndStoppingTwiceDoNothing() {
        serve();
        Client client(m_port);
        QVERIFY(client.waitForEncryption());
        QSignalSpy serving(&server(), &QVDirectConnectionServer::servingChanged);
        server().startServing();
        QCOMPARE(serving.count(), 0);
        QVERIFY(!client.hasEnded());
        server().stopServing();
        server().stopServing();
        QCOMPARE(serving.count(), 1);
    }

    void aPortInUseIsPresentedAsAnErrorAndTheServerDoesNotServe() {
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::Any, m_port));
        server().setPort(m_port);
        server().startServing();
        QVERIFY(!server().isServing());
        QVERIFY(!server().bonjourService());
        QTRY_COMPARE(m_user->presentedErrors().size(), 1);
        const Error error = m_user->presentedErrors().first();
        QCOMPARE(error.domain, EngineErrorDomain);
        QVERIFY(error.localizedDescription.contains(QString::number(m_port)));
        other.close();
        server().startServing();
        QVERIFY(server().isServing());
    }

    void aNewPortWhileServingRestarts() {
        serve();
        Client before(m_port);
        QVERIFY(before.waitForEncryption());
        const quint16 other = freePort();
        QSignalSpy ports(&server(), &QVDirectConnectionServer::portChanged);
        server().setPort(other);
        QCOMPARE(ports.count(), 1);
        QCOMPARE(server().port(), other);
        QVERIFY(server().isServing());
        QCOMPARE(server().bonjourService()->port(), other);
        QVERIFY(Client(other).waitForEncryption());
        QVERIFY(!Client(m_port).waitForEncryption());
        QTRY_VERIFY(before.hasEnded());
    }

    void settingTheSamePortWhileServingKeepsTheConnections() {
        serve();
        Client client(m_port);
        QVERIFY(client.waitForEncryption());
        QSignalSpy serving(&server(), &QVDirectConnectionServer::servingChanged);
        QSignalSpy ports(&server(), &QVDirectConnectionServer::portChanged);
        server().setPort(m_port);
        QCOMPARE(ports.count(), 1);
        QCOMPARE(serving.count(), 0);
        QVERIFY(!client.hasEnded());
    }

    void aNewPortWhileStoppedDoesNotStart() {
        server().setPort(m_port);
        QVERIFY(!server().isServing());
        server().setPort(0);
        QCOMPARE(server().port(), DirectConnection::DefaultPort);
    }

    void theDefaultsSayWhetherAndWhereItServesFromTheStart() {
        setDefault(PortNumberKey, m_port);
        m_host->restart();
        QVERIFY(!server().isServing());
        QCOMPARE(server().port(), m_port);
        setDefault(EnabledKey, true);
        m_host->restart();
        QVERIFY(server().isServing());
        QVERIFY(Client(m_port).waitForEncryption());
    }

    void theCertificateIsKeptWithThePrivateKeyUnreadableToOthers() {
        serve();
        Client first(m_port);
        QVERIFY(first.waitForEncryption());
        const QString path = m_host->directory() + QStringLiteral("/Direct Connection.pem");
        QCOMPARE(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser),
                 QFile::ReadOwner | QFile::WriteOwner);
        m_host->restart();
        serve();
        Client second(m_port);
        QVERIFY(second.waitForEncryption());
        QCOMPARE(second.fingerprint(), first.fingerprint());
        const QTemporaryDir otherProfile;
        const auto other = DirectConnectionIdentity::load(otherProfile.path());
        QVERIFY(other);
        QVERIFY(DirectConnectionIdentity::fingerprint(other->certificate.toDer()) !=
                first.fingerprint());
    }

    void theCertificateNamesNoComputerAndDoesNotExpire() {
        serve();
        Client client(m_port);
        QVERIFY(client.waitForEncryption());
        const QSslCertificate certificate = client.socket().peerCertificate();
        QCOMPARE(certificate.subjectDisplayName(), QStringLiteral("Velmora"));
        QVERIFY(certificate.isSelfSigned());
        QCOMPARE(certificate.expiryDate().date().year(), 9999);
        QCOMPARE(client.socket().sessionProtocol(), QSsl::TlsV1_3);
    }

    void aDamagedCertificateIsAnErrorAndStays() {
        const QString path = m_host->directory() + QStringLiteral("/Direct Connection.pem");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("no key");
        file.close();
        server().startServing();
        QVERIFY(!server().isServing());
        QTRY_COMPARE(m_user->presentedErrors().size(), 1);
        QVERIFY(m_user->presentedErrors().first().localizedDescription.contains(path));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("no key"));
    }

    void aNewClientIsAuthorizedIfTheUserAllowsIt() {
        serve();
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        askFor(connection, client);
        QTRY_COMPARE(m_user->asked().size(), 1);
        const Question question = m_user->asked().first();
        QVERIFY(question.text.contains(ClientName));
        QCOMPARE(question.code, client.code());
        QVERIFY(!authorizedClients().contains(ClientName));
        m_user->answerAll(isOneOfUs);
        QCOMPARE(connection.answer()[Type].toString(), Welcome);
        QCOMPARE(authorizedClients(), QStringList(ClientName));
        QCOMPARE(connection.answerTo(list(QStringLiteral("databases"))), Done);

        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, client.clientSecret.toByteArray())), Welcome);
    }

    void aNewClientIsRefusedIfTheUserRefusesIt() {
        serve();
        m_user->answerAll(isAStranger);
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        askFor(connection, client);
        QCOMPARE(connection.answer()[Type].toString(), Refused);
        QVERIFY(connection.endsInSilence());
        QVERIFY(!authorizedClients().contains(ClientName));
        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, client.clientSecret.toByteArray())), Refused);
    }

    void aClientOfAKnownNameIsAskedAboutAsSuchAndTakesItsPlace() {
        serve();
        const QByteArray former = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, former);
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        askFor(connection, client);
        QTRY_COMPARE(m_user->asked().size(), 1);
        QVERIFY(m_user->asked().first().details.contains(QStringLiteral("replaces another")));
        m_user->answerAll(isOneOfUs);
        QCOMPARE(connection.answer()[Type].toString(), Welcome);
        Client impostor(m_port);
        QCOMPARE(impostor.answerTo(hello(ClientName, former)), Refused);
    }

    void aManInTheMiddleHasAnotherCode() {
        DirectConnectionPairing client = newClient();
        client.serverFingerprint = QByteArray(32, 's');
        client.serverNonce = DirectConnectionPairing::random();
        const QString code = client.code();
        QCOMPARE(code.size(), 7);
        QCOMPARE(client.code(), code);
        DirectConnectionPairing relayed = client;
        relayed.serverFingerprint = QByteArray(32, 'm');
        QVERIFY(relayed.code() != code);
        relayed = client;
        relayed.clientSecret = DirectConnectionPairing::random();
        QVERIFY(relayed.code() != code);
        QVERIFY(relayed.commitment() != client.commitment());
    }

    void aClientThatBreaksItsCommitmentIsRefusedWithoutAQuestion() {
        serve();
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        QVERIFY(connection.waitForEncryption());
        connection.send(pairMessage(client));
        QCOMPARE(connection.answer()[Type].toString(), Pair);
        client.clientNonce = DirectConnectionPairing::random();
        connection.send(revealMessage(client));
        QVERIFY(connection.endsInSilence());
        QVERIFY(m_user->asked().isEmpty());
    }

    void clientsWithUnprintableNamesAreRefusedWithoutAQuestion() {
        serve();
        for (const QString &name :
             {QString(), QStringLiteral("a\nb"), QString(QChar(0x202e)) + QStringLiteral("moc"),
              QString(256, u'x'), QString(128, u'é')}) {
            Client connection(m_port);
            connection.send(pairMessage(newClient(name)));
            QVERIFY(connection.endsInSilence());
        }
        QVERIFY(DirectConnectionClients::isName(QStringLiteral("Jürgen at 茶室 🍵")));
        QVERIFY(m_user->asked().isEmpty());
    }

    void aNameThatIsNotAsciiIsKeptInAscii() {
        serve();
        m_user->answerAll(isOneOfUs);
        const QString name = QStringLiteral("Jürgen: 100%");
        Client connection(m_port);
        DirectConnectionPairing client = newClient(name);
        askFor(connection, client);
        QCOMPARE(connection.answer()[Type].toString(), Welcome);
        QVERIFY(m_user->asked().first().text.contains(name));
        const QString account = QStringLiteral("J%C3%BCrgen: 100%25");
        QCOMPARE(authorizedClients(), QStringList(account));
        const QByteArray secret = client.clientSecret.toByteArray();
        QCOMPARE(Client(m_port).answerTo(hello(name, secret)), Welcome);

        // As the sheet deletes it: as many bytes as the name has units.
        const QString service = DirectConnection::ClientAuthorizationServiceName;
        std::optional<Expected<bool>> isRemoved;
        Keychain::shared().removeFirstLater(
            service.toUtf8().left(service.size()), account.toUtf8().left(account.size()),
            [&](const Expected<bool> &answer) { isRemoved = answer; });
        QTRY_VERIFY(isRemoved.has_value());
        QCOMPARE(*isRemoved, Expected<bool>(true));
        QCOMPARE(Client(m_port).answerTo(hello(name, secret)), Refused);
    }

    void aFormerAccountThatIsNotAsciiIsReplaced() {
        const QString name = QStringLiteral("Jürgen");
        const QByteArray secret = DirectConnectionPairing::random();
        Keychain::shared().setPassword(
            DirectConnection::ClientAuthorizationServiceName, name,
            QCryptographicHash::hash(secret, QCryptographicHash::Sha256).toHex());
        QVERIFY(!DirectConnectionClients::isAuthorized(name, secret).value());
        serve();
        QTRY_COMPARE(authorizedClients(), QStringList(QStringLiteral("J%C3%BCrgen")));
        QCOMPARE(Client(m_port).answerTo(hello(name, secret)), Welcome);
    }

    void oneQuestionIsOpenAtATime() {
        serve({.pauseAfterRefusal = std::chrono::milliseconds(0)});
        auto first = std::make_unique<Client>(m_port);
        DirectConnectionPairing client = newClient();
        askFor(*first, client);
        QTRY_COMPARE(m_user->asked().size(), 1);
        Client second(m_port);
        DirectConnectionPairing other = newClient(QStringLiteral("other"));
        askFor(second, other);
        QCOMPARE(second.answer()[Type].toString(), Busy);
        QCOMPARE(m_user->asked().size(), 1);
        // The question of a client that has gone is withdrawn and keeps no other client out.
        first.reset();
        QTRY_COMPARE(m_user->waiting(), 0);
        Client third(m_port);
        askFor(third, other);
        QTRY_COMPARE(m_user->asked().size(), 2);
        m_user->answerAll(isOneOfUs);
        QCOMPARE(third.answer()[Type].toString(), Welcome);
        QVERIFY(!authorizedClients().contains(ClientName));
    }

    void aQuestionThatIsNotAnsweredIsWithdrawn() {
        serve({.askingTime = std::chrono::milliseconds(200),
               .pauseAfterRefusal = std::chrono::milliseconds(0)});
        Client first(m_port);
        DirectConnectionPairing client = newClient();
        askFor(first, client);
        QTRY_COMPARE(m_user->waiting(), 1);
        QVERIFY(first.endsInSilence());
        QTRY_COMPARE(m_user->waiting(), 0);
        Client second(m_port);
        askFor(second, client);
        QTRY_COMPARE(m_user->asked().size(), 2);
        QVERIFY(!authorizedClients().contains(ClientName));
    }

    void questionsBecomeRarerWithEachRefusal() {
        serve({.pauseAfterRefusal = std::chrono::milliseconds(100)});
        m_user->answerAll(isAStranger);
        // After pauses of 100, 200, 400, 800 and 1600 ms, there is time for at most five questions.
        int tries = 0;
        for (QElapsedTimer time = started(); time.elapsed() < 3000; ++tries) {
            Client connection(m_port);
            DirectConnectionPairing client = newClient();
            askFor(connection, client);
            QVERIFY(!connection.answer().isEmpty());
        }
        QVERIFY(tries > 5);
        QVERIFY(m_user->asked().size() <= 5);
        QVERIFY(m_user->asked().size() > 1);
    }

    void afterARefusalTheUserIsNotAskedForAWhile() {
        serve();
        m_user->answerAll(isAStranger);
        Client first(m_port);
        DirectConnectionPairing client = newClient();
        askFor(first, client);
        QCOMPARE(first.answer()[Type].toString(), Refused);
        Client second(m_port);
        askFor(second, client);
        QCOMPARE(second.answer()[Type].toString(), Busy);
        QCOMPARE(m_user->asked().size(), 1);
    }

    void aStrangerKeepsNoOtherComputerOut() {
        serve();
        m_user->answerAll(isAStranger);
        Client stranger(m_port);
        DirectConnectionPairing unwanted = newClient(QStringLiteral("stranger"));
        askFor(stranger, unwanted);
        QCOMPARE(stranger.answer()[Type].toString(), Refused);
        Client again(m_port);
        askFor(again, unwanted);
        QCOMPARE(again.answer()[Type].toString(), Busy);
        m_user->answerAll(isOneOfUs);
        Client other(m_port, "127.0.0.2");
        DirectConnectionPairing client = newClient();
        askFor(other, client);
        QCOMPARE(other.answer()[Type].toString(), Welcome);
    }

    void strangersTogetherCauseAFewQuestions() {
        const DirectConnection::Limits limits{.pauseAfterRefusal = std::chrono::milliseconds(0),
                                              .refusalsInAnHour = 2};
        serve(limits);
        m_user->answerAll(isAStranger);
        DirectConnectionPairing unwanted = newClient();
        for (const char *address : {"127.0.0.2", "127.0.0.3"}) {
            Client stranger(m_port, address);
            askFor(stranger, unwanted);
            QCOMPARE(stranger.answer()[Type].toString(), Refused);
        }
        Client third(m_port, "127.0.0.4");
        askFor(third, unwanted);
        QCOMPARE(third.answer()[Type].toString(), Busy);
        QCOMPARE(m_user->asked().size(), 2);
        // They have kept everyone out until the user switches the server off and on.
        server().stopServing();
        serve(limits);
        m_user->answerAll(isOneOfUs);
        Client other(m_port, "127.0.0.5");
        askFor(other, unwanted);
        QCOMPARE(other.answer()[Type].toString(), Welcome);
    }

    void onlyTheNewestVersionOfTlsIsSpoken() {
        serve();
        QVERIFY(!Client(m_port, QSsl::TlsV1_2).waitForEncryption());
        QVERIFY(Client(m_port, QSsl::TlsV1_3).waitForEncryption());
    }

    void aLargeMessageWaitsForTheMemoryOfAnother() {
        serve({.memory = 100'000});
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client first(m_port);
        Client second(m_port);
        for (Client *client : {&first, &second}) {
            QCOMPARE(client->answerTo(hello(ClientName, secret)), Welcome);
        }
        const QByteArray message =
            encode(write(QStringLiteral("transactions/@inbox/a"), QByteArray(200'000, 'x')));
        const QByteArray other =
            encode(write(QStringLiteral("transactions/@inbox/b"), QByteArray(200'000, 'x')));
        first.sendBytes(message.first(150'000));
        second.sendBytes(other.first(150'000));
        // The server reads the whole of one of them only, however they arrive.
        first.sendBytes(message.sliced(150'000));
        second.sendBytes(other.sliced(150'000));
        QCOMPARE(first.answer()[Type].toString(), Done);
        QCOMPARE(second.answer()[Type].toString(), Done);
    }

    void aClientThatOccupiesTheMemoryOfAllIsDisconnected() {
        serve({.memory = 100'000, .memoryTime = std::chrono::milliseconds(200)});
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client greedy(m_port);
        QCOMPARE(greedy.answerTo(hello(ClientName, secret)), Welcome);
        Client other(m_port);
        QCOMPARE(other.answerTo(hello(ClientName, secret)), Welcome);
        const QByteArray message =
            encode(write(QStringLiteral("transactions/@inbox/a"), QByteArray(200'000, 'x')));
        greedy.sendBytes(message.chopped(1));
        const auto isDisconnected = [&] {
            other.send(list(QStringLiteral("databases")));
            return other.answer()[Type].toString() == Done && greedy.hasEnded();
        };
        QTRY_VERIFY(isDisconnected());
        QCOMPARE(other.answerTo(
                     write(QStringLiteral("transactions/@inbox/b"), QByteArray(200'000, 'x'))),
                 Done);
    }

    void anAnswerAfterTheServerStoppedAuthorizesNoClient() {
        serve();
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        askFor(connection, client);
        QTRY_COMPARE(m_user->asked().size(), 1);
        server().stopServing();
        server().startServing();
        m_user->answerAll(isOneOfUs);
        // The server may still refuse the client before it closes the connection.
        QVERIFY(QTest::qWaitFor([&] { return connection.hasEnded(); }, EventTimeout));
        QVERIFY(!authorizedClients().contains(ClientName));
        m_user->think();
    }

    void anAnswerAfterTheDeadlineAuthorizesNoClient() {
        serve({.askingTime = std::chrono::milliseconds(50)});
        Client connection(m_port);
        DirectConnectionPairing client = newClient();
        askFor(connection, client);
        QVERIFY(connection.endsInSilence());
        m_user->answerAll(isOneOfUs);
        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, client.clientSecret.toByteArray())), Refused);
    }

    void unauthorizedClientsLearnNothing() {
        serve();
        DirectConnectionClients::authorize(ClientName, DirectConnectionPairing::random());
        for (const QCborMap &message :
             {list(QStringLiteral("databases")), read(QStringLiteral("databases/@inbox.json")),
              QCborMap(), ofType(Welcome), ofType(Reveal), QCborMap{{Type, 5}}}) {
            Client client(m_port);
            client.send(message);
            QVERIFY(client.endsInSilence());
        }
        // Neither whether there is a client of that name.
        const QByteArray guess = DirectConnectionPairing::random();
        for (const QCborMap &message :
             {hello(ClientName, guess), hello(QStringLiteral("nobody"), guess),
              hello(ClientName, QByteArray()), ofType(Hello)}) {
            Client client(m_port);
            client.send(message);
            QCOMPARE(client.answer(), ofType(Refused));
            client.send(list(QStringLiteral("databases")));
            QVERIFY(client.endsInSilence());
        }
    }

    void garbageEndsTheConnectionAndNothingElse() {
        serve();
        for (const QByteArray &bytes :
             {QByteArray("GET / HTTP/1.1\r\n\r\n"), QByteArray(4, '\xff'), QByteArray(4, '\0'),
              QByteArray("\0\0\0\1\xff", 5), QByteArray("\0\0\0\2\xa0\xa0", 6),
              QByteArray("\0\0\x10\1", 4) + QByteArray(4097, 'x'), encode({}).chopped(1) + 'x'}) {
            Client client(m_port);
            QVERIFY(client.waitForEncryption());
            client.sendBytes(bytes);
            QVERIFY(client.endsInSilence());
        }
        QTcpSocket plain;
        plain.connectToHost(QStringLiteral("127.0.0.1"), m_port);
        plain.write(QByteArray(100000, 'x'));
        QTRY_COMPARE(plain.state(), QAbstractSocket::UnconnectedState);
        QVERIFY(Client(m_port).waitForEncryption());
    }

    void clientsThatSendNoHelloInTimeAreDisconnected() {
        serve({.greetingTime = std::chrono::milliseconds(50)});
        QTcpSocket silent;
        silent.connectToHost(QStringLiteral("127.0.0.1"), m_port);
        QTRY_COMPARE(silent.state(), QAbstractSocket::ConnectedState);
        QTRY_COMPARE(silent.state(), QAbstractSocket::UnconnectedState);
    }

    void idleClientsAreDisconnected() {
        serve({.idleTime = std::chrono::seconds(1)});
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        QVERIFY(client.endsInSilence());
    }

    void clientsThatSendAMessageTooSlowlyAreDisconnected() {
        serve({.messageTime = std::chrono::seconds(1)});
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        client.sendBytes(QByteArray("\0\x01\0\0", 4));
        const auto isDisconnected = [&] {
            client.sendBytes("x");
            return client.hasEnded();
        };
        QTRY_VERIFY(isDisconnected());
    }

    void aFloodOfConnectionsTakesNoRoomFromThoseAuthorized() {
        serve({.connections = 3});
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client friendly(m_port);
        QCOMPARE(friendly.answerTo(hello(ClientName, secret)), Welcome);
        std::vector<std::unique_ptr<QTcpSocket>> flood;
        const auto count = [&](QAbstractSocket::SocketState state) {
            return std::count_if(flood.begin(), flood.end(),
                                 [&](const auto &socket) { return socket->state() == state; });
        };
        // The system drops or delays some of more at once. One that arrives late takes the room of
        // a computer that has not greeted yet.
        constexpr int atOnce = 20;
        for (int i = 1; i <= 10; ++i) {
            while (std::ssize(flood) < i * atOnce) {
                flood.push_back(std::make_unique<QTcpSocket>());
                flood.back()->connectToHost(QStringLiteral("127.0.0.1"), m_port);
            }
            // All but two have given way to others.
            QTRY_COMPARE_GE(count(QAbstractSocket::UnconnectedState), i * atOnce - 2);
        }
        QCOMPARE(friendly.answerTo(list(QStringLiteral("databases"))), Done);
        Client another(m_port);
        QCOMPARE(another.answerTo(hello(ClientName, secret)), Welcome);
        Client third(m_port);
        QCOMPARE(third.answerTo(hello(ClientName, secret)), Welcome);
        // Now there is nobody who could give way.
        Client fourth(m_port);
        QVERIFY(fourth.endsInSilence());
        QCOMPARE(friendly.answerTo(list(QStringLiteral("databases"))), Done);
    }

    void aClientWithManyConnectionsLeavesRoomForOthers() {
        serve({.connections = 4, .connectionsOfClient = 2});
        const QString otherName = QStringLiteral("other");
        const QByteArray secret = DirectConnectionPairing::random();
        const QByteArray otherSecret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        DirectConnectionClients::authorize(otherName, otherSecret);
        std::vector<std::unique_ptr<Client>> greedy;
        for (int i = 0; i < 4; ++i) {
            greedy.push_back(std::make_unique<Client>(m_port));
            QCOMPARE(greedy.back()->answerTo(hello(ClientName, secret)), Welcome);
        }
        Client one(m_port);
        QCOMPARE(one.answerTo(hello(otherName, otherSecret)), Welcome);
        QVERIFY(greedy[0]->endsInSilence());
        Client two(m_port);
        QCOMPARE(two.answerTo(hello(otherName, otherSecret)), Welcome);
        QVERIFY(greedy[1]->endsInSilence());
        // Now each has its share.
        Client third(m_port);
        QVERIFY(third.endsInSilence());
        QCOMPARE(greedy[2]->answerTo(list(QStringLiteral("databases"))), Done);
        QCOMPARE(two.answerTo(list(QStringLiteral("databases"))), Done);
    }

    void aClientThatDoesNotReadItsResponsesIsNotReadFrom() {
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        const QString name = QStringLiteral("transactions/@inbox/big");
        QCOMPARE(client.answerTo(write(name, QByteArray(4000000, 'x'))), Done);
        QCborMap reading = read(name);
        reading[SizeLimit] = 5000000;
        // This many simultaneous responses would take 4 GB.
        client.sendBytes(encode(reading).repeated(1000));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(client.answer()[Contents].toByteArray().size(), 4000000);
        }
        Client other(m_port);
        QCOMPARE(other.answerTo(hello(ClientName, secret)), Welcome);
    }

    void aRevokedClientIsRefusedAlsoOnAnOpenConnection() {
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        QCOMPARE(client.answerTo(list(QStringLiteral("databases"))), Done);
        QVERIFY(KeychainRemoval::removeFirst(
            Keychain::shared(), DirectConnection::ClientAuthorizationServiceName.toUtf8(),
            ClientName.toUtf8()));
        client.send(list(QStringLiteral("databases")));
        QCOMPARE(client.answer(), ofType(Refused));
        QVERIFY(client.endsInSilence());
        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, secret)), Refused);
    }

    void theDatabasesOfTheProfileAreThereWhenAClientOpens() {
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        const auto database = m_host->addDatabase(QStringLiteral("Garden"));
        const QString record = QStringLiteral("databases/%1.json").arg(database->UUID());
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        client.send(list(QStringLiteral("databases")));
        const QCborArray names = client.answer()[Names].toArray();
        QCOMPARE(names.size(), 2);
        QVERIFY(names.contains(QStringLiteral("@inbox.json")));
        client.send(read(record));
        QVERIFY(client.answer()[Contents].toByteArray().contains("\"Garden\""));
        m_host->renameDatabase(database, QStringLiteral("Orchard"));
        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, secret)), Welcome);
        later.send(read(record));
        QVERIFY(later.answer()[Contents].toByteArray().contains("\"Orchard\""));
    }

    void clientsWriteIntoThePackageOnly() {
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        const QString folder = QStringLiteral("transactions/%1")
                                   .arg(QUuid::createUuid().toString(QUuid::WithoutBraces));
        const QString name = folder + QStringLiteral("/000-a.b");
        client.send(write(name, "one"));
        QCborMap answer = client.answer();
        QCOMPARE(answer[Type].toString(), Done);
        QVERIFY(answer[IsNew].toBool());
        client.send(write(name, "two"));
        answer = client.answer();
        QCOMPARE(answer[Type].toString(), Done);
        QVERIFY(!answer[IsNew].toBool());
        QFile file(package() + u'/' + name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("one"));
        client.send(list(folder));
        QCOMPARE(client.answer()[Names].toArray(), QCborArray{QStringLiteral("000-a.b")});
        QCOMPARE(client.answerTo({{Type, Remove}, {Name, name}}), Done);
        QVERIFY(!file.exists());
        client.send(read(name));
        answer = client.answer();
        QCOMPARE(answer[Reason].toString(), BlobMissing);
        QCOMPARE(client.answerTo(ofType(QStringLiteral("format"))), Failed);
    }

    void namesThatLeadElsewhereAreRefused_data() {
        QTest::addColumn<QString>("name");
        const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
        const QString transaction = QStringLiteral("transactions/") + UUID;
        QTest::newRow("nothing") << QString();
        QTest::newRow("the package") << QStringLiteral(".");
        QTest::newRow("the profile") << QStringLiteral("../profile.sqlite");
        QTest::newRow("absolute") << QStringLiteral("/etc/passwd");
        QTest::newRow("up and down") << QStringLiteral("databases/../../Direct Connection.pem");
        QTest::newRow("up in a transaction") << transaction + QStringLiteral("/../../../x");
        QTest::newRow("hidden") << transaction + QStringLiteral("/.x");
        QTest::newRow("deep") << transaction + QStringLiteral("/a/b");
        QTest::newRow("capital letters")
            << QStringLiteral("databases/AAAAAAAA-AAAA-4AAA-8AAA-AAAAAAAAAAAA.json");
        QTest::newRow("capital letters in a transaction")
            << QStringLiteral("transactions/AAAAAAAA-AAAA-4AAA-8AAA-AAAAAAAAAAAA/x");
        QTest::newRow("nil UUID") << QStringLiteral(
            "databases/00000000-0000-0000-0000-000000000000.json");
        QTest::newRow("no database") << QStringLiteral("databases/x.json");
        QTest::newRow("no record") << QStringLiteral("databases/") + UUID;
        QTest::newRow("transactions of nothing") << QStringLiteral("transactions/x/y");
        QTest::newRow("a folder") << transaction;
        QTest::newRow("line feed at the end") << transaction + QStringLiteral("/a\n");
        QTest::newRow("NUL") << transaction + QStringLiteral("/a") + QChar(0);
        QTest::newRow("too long") << transaction + u'/' + QString(129, u'a');
        QTest::newRow("not ASCII") << transaction + QStringLiteral("/é");
        QTest::newRow("another case") << QStringLiteral("Databases/%1.json").arg(UUID);
        QTest::newRow("escapes") << QStringLiteral("databases%2f") + UUID + QStringLiteral(".json");
    }

    void namesThatLeadElsewhereAreRefused() {
        QFETCH(const QString, name);
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        const QStringList before =
            QDir(m_host->directory()).entryList(QDir::AllEntries | QDir::Hidden, QDir::Name);
        for (const QCborMap &message :
             {read(name), write(name, "x"), QCborMap{{Type, Remove}, {Name, name}}}) {
            client.send(message);
            const QCborMap answer = client.answer();
            QCOMPARE(answer[Type].toString(), Failed);
            QCOMPARE(answer[Reason].toString(), BlobRefused);
        }
        QCOMPARE(QDir(m_host->directory()).entryList(QDir::AllEntries | QDir::Hidden, QDir::Name),
                 before);
        if (name != QStringLiteral("transactions/") + name.section(u'/', 1, 1)) {
            QCOMPARE(client.answerTo(list(name)), Failed);
        }
    }

    void aDatabaseThatTheUserHasNotChosenIsServedToNobody() {
        const QString secret = m_host->addDatabase(QStringLiteral("Diary"))->UUID();
        const QString record = QStringLiteral("databases/%1.json").arg(secret);
        const QString transactions = QStringLiteral("transactions/") + secret;
        serve();
        const QByteArray password = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, password);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, password)), Welcome);
        QCOMPARE(client.answerTo(read(record)), Done);
        QCOMPARE(client.answerTo(list(transactions)), Done);

        // Also those that are connected already.
        servedDatabase(QStringLiteral("Diary"))->setServed(false);
        for (const QCborMap &message :
             {read(record), write(record, "x"), QCborMap{{Type, Remove}, {Name, record}},
              list(transactions), read(transactions + QStringLiteral("/a")),
              write(transactions + QStringLiteral("/a"), "x")}) {
            client.send(message);
            const QCborMap answer = client.answer();
            QCOMPARE(answer[Type].toString(), Failed);
            QCOMPARE(answer[Reason].toString(), NotServed);
        }
        for (const char *folder : {"databases", "transactions"}) {
            client.send(list(QLatin1StringView(folder)));
            const QCborMap answer = client.answer();
            QCOMPARE(answer[Type].toString(), Done);
            for (const QCborValue name : answer[Names].toArray()) {
                QVERIFY2(!name.toString().contains(secret), folder);
            }
        }
        m_host->restart();
        QVERIFY(!servedDatabase(QStringLiteral("Diary"))->isServed());
        serve();
        Client later(m_port);
        QCOMPARE(later.answerTo(hello(ClientName, password)), Welcome);
        QCOMPARE(later.answerTo(read(record)), Failed);
        servedDatabase(QStringLiteral("Diary"))->setServed(true);
        QCOMPARE(later.answerTo(read(record)), Done);
    }

    void aDatabaseThatIsNotChosenIsNotCopiedForClients() {
        const QString secret = m_host->addDatabase(QStringLiteral("Diary"))->UUID();
        servedDatabase(QStringLiteral("Diary"))->setServed(false);
        serve();
        const QByteArray password = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, password);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, password)), Welcome);
        const QDir databases(package() + QStringLiteral("/databases"));
        QCOMPARE(databases.entryList(QDir::Files), QStringList(QStringLiteral("@inbox.json")));
    }

    void aChoiceThatCannotBeSavedStaysAsItWas() {
        m_host->addDatabase(QStringLiteral("Diary"));
        m_host->makeSavesFail();
        const auto database = servedDatabase(QStringLiteral("Diary"));
        database->setServed(false);
        m_host->letSavesPass();
        QVERIFY(database->isServed());
        QCOMPARE(m_user->presentedErrors().size(), 1);
    }

    void theLastConnectionOfEachClientIsStated() {
        serve();
        QCOMPARE(server().lastConnectionText(ClientName),
                 QStringLiteral("Last connected: unknown"));
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        QCOMPARE(Client(m_port).answerTo(hello(ClientName, QByteArray("wrong"))), Refused);
        QCOMPARE(server().lastConnectionText(ClientName),
                 QStringLiteral("Last connected: unknown"));
        QCOMPARE(Client(m_port).answerTo(hello(ClientName, secret)), Welcome);
        m_host->restart();
        const QString text = server().lastConnectionText(ClientName);
        const QRegularExpression wanted(QStringLiteral("^Last connected: .*\\d:\\d\\d"));
        QVERIFY2(wanted.match(text).hasMatch(), qPrintable(text));
        QCOMPARE(server().lastConnectionText(QStringLiteral("another")),
                 QStringLiteral("Last connected: unknown"));
        const FailingTable failing(m_host->engine().profile(), QStringLiteral("settings"),
                                   FailingTable::Fault::AllRows);
        const qsizetype logged = m_user->logEntries().size();
        QCOMPARE(server().lastConnectionText(ClientName),
                 QStringLiteral("Last connected: unknown"));
        QCOMPARE(m_user->logEntries().size(), logged + 1);
    }

    void aLinkInThePackageIsNotFollowed() {
        serve();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        QVERIFY(QDir().mkpath(package() + QStringLiteral("/transactions/@inbox")));
        QVERIFY(QFile::link(m_host->directory() + QStringLiteral("/Direct Connection.pem"),
                            package() + QStringLiteral("/transactions/@inbox/link")));
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        QCOMPARE(client.answerTo(read(QStringLiteral("transactions/@inbox/link"))), Failed);
    }

    void aDiskThatHangsDoesNotKeepTheServer() {
        QSemaphore begun;
        QSemaphore goesOn;
        MemoryStore::Blobs blobs;
        Observer observer;
        auto hanging = std::make_unique<DirectConnectionServer>(m_host->engine().profile());
        const auto store = std::make_shared<MemoryStore>(blobs, [&] {
            begun.release();
            goesOn.acquire();
            return MemoryStore::Fault::None;
        });
        const auto served = std::make_shared<ServedDatabases>(m_host->engine().profile());
        QVERIFY(served->load());
        hanging->load(DirectConnectionPackage(package(), store, served), observer);
        hanging->setPort(m_port);
        hanging->startServing();
        const QByteArray secret = DirectConnectionPairing::random();
        DirectConnectionClients::authorize(ClientName, secret);
        Client client(m_port);
        QCOMPARE(client.answerTo(hello(ClientName, secret)), Welcome);
        client.send(write(QStringLiteral("transactions/@inbox/a"), "x"));
        QVERIFY(QTest::qWaitFor([&] { return begun.tryAcquire(); }, EventTimeout));

        const QElapsedTimer time = started();
        hanging.reset();
        QCOMPARE_LT(time.elapsed(), 1000);
        QVERIFY(DirectConnectionServer::isAnyListenerRunning());
        // The server no longer exists when its listener announces what the client has written.
        goesOn.release();
        QTRY_VERIFY(client.hasEnded());
        QTRY_VERIFY(!DirectConnectionServer::isAnyListenerRunning());
        QCOMPARE(blobs.size(), 1);
        QCOMPARE(observer.writes, 0);
    }

    void aKeyringThatDoesNotRespondDoesNotKeepTheServer() {
        SecretService secrets;
        secrets.freezeKeyring();
        // Before anything else the listener looks up its clients.
        serve();
        Client client(m_port);
        const QElapsedTimer time = started();
        server().stopServing();
        QCOMPARE_LT(time.elapsed(), 1000);
        QVERIFY(!server().isServing());
        QTRY_VERIFY(client.hasEnded());
        // The port is free again.
        serve();
        // That it does not know its clients is reported.
        QTRY_VERIFY(!m_user->presentedErrors().isEmpty());
        QVERIFY(m_user->presentedErrors().first().localizedDescription.contains(
            QStringLiteral("could not be read")));
    }
};

VELMORA_TEST(DirectConnectionServerTest)
#include "DirectConnectionServerTest.moc"
