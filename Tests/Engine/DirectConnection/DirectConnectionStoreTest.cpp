#include <QtCore/QCborArray>
#include <QtNetwork/QTcpServer>
#include <latch>
#include <thread>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/DirectConnection/DirectConnectionStore.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Host/QVServedDatabase.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedUser.h"
#include "Support/AwaitOnThread.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/EventTimeout.h"
#include "Support/Failure.h"
#include "Support/FreePort.h"
#include "Support/KeychainRemoval.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

bool isServersQuestion(const Question &question) {
    return question.acceptTitle == QStringLiteral("Allow");
}

bool isAnything(const Question & /*question*/) {
    return true;
}

bool isNothing(const Question & /*question*/) {
    return false;
}

}  // namespace

/// A profile that synchronizes with its own server.
class DirectConnectionStoreTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<AskedUser> m_user;
    std::shared_ptr<QVSyncLocation> m_location;
    quint16 m_port = 0;

    DirectConnectionServer &server() {
        return dynamic_cast<DirectConnectionServer &>(*m_host->engine().plugin().server());
    }

    QString address() const {
        return QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(m_port);
    }

    std::shared_ptr<BlobStore> newStore() {
        return std::dynamic_pointer_cast<BlobStore>(m_location->createStore());
    }

    static Expected<void> open(const std::shared_ptr<BlobStore> &store) {
        return awaitOnThread([&] { return store->open(EngineFuture()); });
    }

    void pair() {
        m_user->answerAll(isAnything);
        QCOMPARE(description(open(newStore())), QString());
        m_user->think();
    }

    static void forget(const QString &service) {
        Keychain &keychain = Keychain::shared();
        const QStringList accounts = keychain.accounts(service).value_or(QStringList());
        for (const QString &account : accounts) {
            KeychainRemoval::removeFirst(keychain, service.toUtf8(), account.toUtf8());
        }
    }

    static void revoke() { forget(DirectConnection::ClientAuthorizationServiceName); }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_user = std::make_unique<AskedUser>();
        m_port = freePort();
        m_location = m_host->addLocation(address());
        server().setPort(m_port);
        server().startServing();
        QVERIFY(server().isServing());
    }

    void cleanup() {
        revoke();
        m_location.reset();
        m_host.reset();
        m_user.reset();
    }

    void aDatabaseThatIsNotServedIsNamedAsSuch() {
        pair();
        const auto inbox = server().databases().first().value<std::shared_ptr<QVServedDatabase>>();
        inbox->setServed(false);
        const auto store = newStore();
        const auto listed = awaitOnThread(
            [&] { return store->list(QStringLiteral("transactions/@inbox"), EngineFuture()); });
        QCOMPARE(code(listed), EngineErrorCode::AccessDenied);
        QCOMPARE(listed.error().localizedDescription,
                 QStringLiteral("“127.0.0.1” does not serve this database. Tick it there under "
                                "“Direct Connections…” in Sync Preferences, and synchronize "
                                "again."));
    }

    void theFirstOpeningPairsAndBothUsersSeeTheSameCode() {
        m_user->answerAll(isAnything);
        QCOMPARE(description(open(newStore())), QString());
        QCOMPARE(m_user->asked().size(), 2);
        const QString code = m_user->asked().first().code;
        QVERIFY(!code.isEmpty());
        QCOMPARE(m_user->asked().last().code, code);
        const QStringList clients =
            Keychain::shared().accounts(DirectConnection::ClientAuthorizationServiceName).value();
        QCOMPARE(clients.size(), 1);
        QVERIFY(clients.first().endsWith(QStringLiteral(" at ") + QSysInfo::machineHostName()));
        QVERIFY(m_user->asked().first().text.contains(clients.first()) ||
                m_user->asked().last().text.contains(clients.first()));
        QCOMPARE(description(open(newStore())), QString());
        QCOMPARE(m_user->asked().size(), 2);
    }

    // A location that was added is paired and checked at the same time.
    void storesThatOpenAtTheSameTimePairOnce() {
        QList<std::optional<Error>> results;
        for (int i = 0; i < 3; ++i) {
            newStore()->openWithCompletionHandler([&](const std::optional<Error> &error) {
                MainQueue::dispatchAsync([&results, error] { results.append(error); });
            });
        }
        QTRY_COMPARE(m_user->waiting(), 2);
        m_user->answerAll(isAnything);
        QTRY_COMPARE(results.size(), 3);
        for (const std::optional<Error> &error : std::as_const(results)) {
            QVERIFY2(!error, qPrintable(error.value_or(Error()).localizedDescription));
        }
        QCOMPARE(m_user->asked().size(), 2);
    }

    void aStoreIsCheckedLikeAnyOther() {
        pair();
        std::optional<QVSyncStoreCheck> found;
        newStore()->checkWithCompletionHandler([&](const QVSyncStoreCheck &check) {
            MainQueue::dispatchAsync([&found, check] { found = check; });
        });
        QTRY_VERIFY(found);
        QVERIFY2(!found->error, qPrintable(found->error.value_or(Error()).localizedDescription));
        QVERIFY(found->isReadable);
        QVERIFY(!found->size);
        const QDir databases(DirectConnectionPackage::pathInProfile(m_host->directory()) +
                             QStringLiteral("/databases"));
        QCOMPARE(databases.entryList({QStringLiteral("probe-*")}, QDir::Files), QStringList());
    }

    void theEngineMayEndWhileAConnectionIsBeingMade() {
        // Accepts connections and never sends a byte.
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        const auto location = m_host->addLocation(QStringLiteral("%1://127.0.0.1:%2")
                                                      .arg(DirectConnection::URLScheme)
                                                      .arg(silent.serverPort()));
        const auto state = m_host->addState(location, m_host->inbox());
        state->setEnabled(true);
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        dispatcher->performSynchronizationsWithSynchronizationStates({state});
        QTRY_VERIFY(silent.hasPendingConnections());
        m_location.reset();
        QElapsedTimer time;
        time.start();
        m_host.reset();
        // The connection was not waited for until its deadline.
        QVERIFY(time.elapsed() < 5000);
    }

    void thePairingOutlivesTheProcessForItsLocationOnly() {
        pair();
        m_host->save();
        const quint16 port = m_port;
        setDefault(QStringLiteral("QVDirectConnectionServerPortNumber"), port);
        setDefault(QStringLiteral("QVDirectConnectionServerEnabled"), true);
        m_location.reset();
        QCoreApplication::processEvents();
        m_host->restart();
        removeDefault(QStringLiteral("QVDirectConnectionServerPortNumber"));
        removeDefault(QStringLiteral("QVDirectConnectionServerEnabled"));
        m_location = m_host->locations().syncLocations().first();
        setNSApp(m_user.get());
        QCOMPARE(description(open(newStore())), QString());
        QCOMPARE(m_user->asked().size(), 2);

        m_location = m_host->addLocation(address());
        m_user->answerAll(isNothing);
        QCOMPARE(code(open(newStore())), EngineErrorCode::AccessDenied);
        QCOMPARE(m_user->asked().size(), 4);
    }

    void theUserAtTheServerMayRefuse() {
        m_user->answerAll([](const Question &question) { return !isServersQuestion(question); });
        const Expected<void> opened = open(newStore());
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QVERIFY(description(opened).contains(QStringLiteral("127.0.0.1")));
        QCOMPARE(code(open(newStore())), EngineErrorCode::AccessDenied);
    }

    void theUserAtTheClientMayRefuseAndNothingIsPinned() {
        m_host->engine().plugin().context().pairings->setPauses({});
        m_user->answerAll(isServersQuestion);
        const Expected<void> opened = open(newStore());
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QVERIFY(description(opened).contains(QStringLiteral("accept it on both computers")));
        QCOMPARE(m_user->asked().size(), 2);
        m_user->answerAll(isAnything);
        QCOMPARE(description(open(newStore())), QString());
        QCOMPARE(m_user->asked().size(), 4);
    }

    void cancellingEndsWaitingForTheUsers() {
        const std::shared_ptr<BlobStore> store = newStore();
        std::optional<Error> result;
        std::atomic<bool> isDone = false;
        const std::shared_ptr<PZFuture> future =
            store->openWithCompletionHandler([&](const std::optional<Error> &error) {
                result = error;
                isDone = true;
            });
        QTRY_COMPARE(m_user->asked().size(), 2);
        QVERIFY(!isDone);
        future->cancel();
        QTRY_VERIFY(isDone);
        QCOMPARE(code(result), EngineErrorCode::Cancelled);
        // Both questions end with the attempt.
        QTRY_COMPARE(m_user->waiting(), 0);
    }

    void theUserAtTheClientIsNotAskedAgainAtOnce() {
        m_user->answerAll(isServersQuestion);
        const Expected<void> opened = open(newStore());
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QVERIFY(description(opened).contains(QStringLiteral("accept it on both computers")));
        QCOMPARE(m_user->asked().size(), 2);
        for (int i = 0; i < 3; ++i) {
            const Expected<void> opened = open(newStore());
            QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
            QVERIFY(description(opened).contains(QStringLiteral("not paired")));
        }
        QCOMPARE(m_user->asked().size(), 2);
    }

    void quittingDoesNotWaitForTheUsers() {
        newStore()->openWithCompletionHandler([](const std::optional<Error> &) {});
        QTRY_COMPARE(m_user->asked().size(), 2);
        m_location.reset();
        QElapsedTimer clock;
        clock.start();
        m_host.reset();
        // The users have minutes.
        QVERIFY(clock.elapsed() < EventTimeout);
    }

    void aServerWithAnotherCertificateIsRefused() {
        pair();
        server().stopServing();
        QVERIFY(QFile::remove(m_host->directory() + QStringLiteral("/Direct Connection.pem")));
        server().startServing();
        m_user->answerAll(isAnything);
        const qsizetype asked = m_user->asked().size();
        const Expected<void> opened = open(newStore());
        QCOMPARE(code(opened), EngineErrorCode::CertificateUntrusted);
        QVERIFY(description(opened).contains(QStringLiteral("127.0.0.1")));
        QCOMPARE(m_user->asked().size(), asked);
    }

    void aForgottenSecretPairsAgainButOnlyWithThePinnedServer() {
        pair();
        const QString service = QStringLiteral("Velmora Direct Connection Servers");
        forget(service);
        m_user->answerAll(isAnything);
        QCOMPARE(description(open(newStore())), QString());
        QCOMPARE(m_user->asked().size(), 4);
        forget(service);
        server().stopServing();
        QVERIFY(QFile::remove(m_host->directory() + QStringLiteral("/Direct Connection.pem")));
        server().startServing();
        QCOMPARE(code(open(newStore())), EngineErrorCode::CertificateUntrusted);
    }

    void aRevokedClientIsRefusedAlsoOnAnOpenConnection() {
        pair();
        const std::shared_ptr<BlobStore> store = newStore();
        QCOMPARE(description(open(store)), QString());
        revoke();
        const auto list = [&] { return store->list(QStringLiteral("databases"), EngineFuture()); };
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(code(awaitOnThread(list)), EngineErrorCode::AccessDenied);
        }
        QCOMPARE(code(open(newStore())), EngineErrorCode::AccessDenied);
        // No user is asked again.
        QCOMPARE(m_user->asked().size(), 2);
    }

    void theServersDatabasesAreFetched() {
        const auto garden = m_host->addDatabase(QStringLiteral("Garden"));
        pair();
        const std::shared_ptr<QVSyncStore> store = newStore();
        std::atomic<int> done = 0;
        std::optional<QVRemoteDatabases> databases;
        store->openWithCompletionHandler([&](const std::optional<Error> &openingError) {
            if (openingError) {
                done = -1;
                return;
            }
            store->fetchDatabasesWithCompletionHandler(
                [&](const std::optional<QVRemoteDatabases> &fetched,
                    const std::optional<Error> &error) {
                    databases = fetched;
                    done = error ? -2 : 1;
                });
        });
        QTRY_VERIFY(done != 0);
        QCOMPARE(done, 1);
        QCOMPARE(databases->size(), 2);
        QStringList found;
        for (const auto &database : *databases) {
            found.append(database->UUID() + u' ' + database->metadata()->name());
        }
        QStringList expected{QStringLiteral("@inbox Inbox"),
                             garden->UUID() + QStringLiteral(" Garden")};
        found.sort();
        expected.sort();
        QCOMPARE(found, expected);
    }

    void blobsAreWrittenOnceListedReadAndRemoved() {
        pair();
        const std::shared_ptr<BlobStore> store = newStore();
        const QString folder = QStringLiteral("transactions/@inbox");
        const QString name = folder + QStringLiteral("/0001");
        const QByteArray contents = QByteArray("\0\xff", 2).repeated(1000000);
        const EngineFuture future;
        // Unopened, from one thread after another.
        const auto write = [&] { return store->writeIfAbsent(name, contents, future); };
        QCOMPARE(awaitOnThread(write).value(), BlobStore::Written::New);
        QCOMPARE(awaitOnThread(write).value(), BlobStore::Written::AlreadyThere);
        const auto list = [&] { return store->list(folder, future); };
        QCOMPARE(awaitOnThread(list).value(), QStringList(QStringLiteral("0001")));
        const auto read = [&] { return store->read(name, contents.size(), future); };
        QCOMPARE(awaitOnThread(read).value(), contents);
        const auto readLess = [&] { return store->read(name, contents.size() - 1, future); };
        QCOMPARE(code(awaitOnThread(readLess)), EngineErrorCode::BlobRefused);
        const auto remove = [&] { return store->remove(name, future); };
        QCOMPARE(description(awaitOnThread(remove)), QString());
        QCOMPARE(description(awaitOnThread(remove)), QString());
        QCOMPARE(code(awaitOnThread(read)), EngineErrorCode::BlobMissing);
        QCOMPARE(awaitOnThread(list).value(), QStringList());
    }

    void severalThreadsMayUseOneStore() {
        pair();
        const std::shared_ptr<BlobStore> store = newStore();
        const EngineFuture future;
        std::atomic<int> written = 0;
        std::atomic<int> ended = 0;
        const auto writeTwenty = [&](int writer) {
            for (int i = 0; i < 20; ++i) {
                const QString name = QStringLiteral("transactions/@inbox/%1-%2").arg(writer).arg(i);
                written += store->writeIfAbsent(name, "x", future) ? 1 : 0;
            }
            ++ended;
        };
        std::vector<std::jthread> threads;
        for (int writer = 0; writer < 4; ++writer) {
            threads.emplace_back(writeTwenty, writer);
        }
        QTRY_COMPARE(ended.load(), 4);
        QCOMPARE(written, 80);
    }

    void anIdleConnectionThatTheServerHasEndedIsMadeAgain() {
        pair();
        const std::shared_ptr<BlobStore> store = newStore();
        QCOMPARE(description(open(store)), QString());
        server().stopServing();
        server().startServing();
        const auto list = [&] { return store->list(QStringLiteral("databases"), EngineFuture()); };
        QCOMPARE(awaitOnThread(list).value(), QStringList(QStringLiteral("@inbox.json")));
    }

    void aServerThatIsNotThereIsUnreachable() {
        server().stopServing();
        const Expected<void> opened = open(newStore());
        QCOMPARE(code(opened), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(opened).contains(QStringLiteral("127.0.0.1")));
        m_location->setURL(Url::fromString(QStringLiteral("velmora://no-such-host.invalid:1")));
        QCOMPARE(code(open(newStore())), EngineErrorCode::StoreUnreachable);
    }

    void aServerThatSpeaksSomethingElseIsUnreachable() {
        server().stopServing();
        QTcpServer other;
        QVERIFY(other.listen(QHostAddress::LocalHost, m_port));
        connect(&other, &QTcpServer::newConnection, &other, [&] {
            QTcpSocket *socket = other.nextPendingConnection();
            socket->write("HTTP/1.1 400 Bad Request\r\n\r\n");
            socket->disconnectFromHost();
        });
        QCOMPARE(code(open(newStore())), EngineErrorCode::StoreUnreachable);
    }

    void aResponseWithoutWhatWasRequestedIsNotUnderstood_data() {
        using namespace DirectConnectionMessage;
        using Request = std::function<Expected<void>(BlobStore &)>;
        const Request list = [](BlobStore &store) {
            return store.list(QStringLiteral("databases"), EngineFuture()).map([](const auto &) {});
        };
        const Request read = [](BlobStore &store) {
            return store.read(QStringLiteral("databases/@inbox.json"), 100, EngineFuture())
                .map([](const auto &) {});
        };
        const Request write = [](BlobStore &store) {
            return store.writeIfAbsent(QStringLiteral("databases/@inbox.json"), "x", EngineFuture())
                .map([](const auto &) {});
        };
        QTest::addColumn<Request>("request");
        QTest::addColumn<QCborMap>("response");
        const QCborMap done = ofType(Done);
        QTest::newRow("no names") << list << done;
        QTest::newRow("names that are none") << list << QCborMap{{Type, Done}, {Names, 5}};
        QTest::newRow("a name that is none")
            << list << QCborMap{{Type, Done}, {Names, QCborArray{QStringLiteral("a.json"), 5}}};
        QTest::newRow("no contents") << read << done;
        QTest::newRow("contents that are none")
            << read << QCborMap{{Type, Done}, {Contents, QStringLiteral("x")}};
        QTest::newRow("no word whether it was written") << write << done;
    }

    void aResponseWithoutWhatWasRequestedIsNotUnderstood() {
        using namespace DirectConnectionMessage;
        using Request = std::function<Expected<void>(BlobStore &)>;
        QFETCH(Request, request);
        QFETCH(QCborMap, response);
        pair();
        server().stopServing();
        const auto identity = DirectConnectionIdentity::load(m_host->directory());
        QVERIFY(identity);
        const DirectConnectionPeer peer(*identity, {encode(ofType(Welcome)), encode(response)},
                                        1 << 16, m_port);
        const std::shared_ptr<BlobStore> store = newStore();
        const Expected<void> result = awaitOnThread([&] { return request(*store); });
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY2(description(result).contains(QStringLiteral("sent an invalid response")),
                 qPrintable(description(result)));
    }

    void cancellingEndsWaitingForAServerThatDoesNotRespond() {
        server().stopServing();
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost, m_port));
        std::atomic<bool> isDone = false;
        std::optional<Error> result;
        const std::shared_ptr<PZFuture> future =
            newStore()->openWithCompletionHandler([&](const std::optional<Error> &error) {
                result = error;
                isDone = true;
            });
        QTRY_VERIFY(silent.hasPendingConnections());
        future->cancel();
        QTRY_VERIFY(isDone);
        QCOMPARE(code(result), EngineErrorCode::Cancelled);
    }
};

VELMORA_TEST(DirectConnectionStoreTest)
#include "DirectConnectionStoreTest.moc"
