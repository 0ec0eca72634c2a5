#include <sys/syscall.h>

#include <QtCore/QSettings>
#include <QtNetwork/QTcpServer>
#include <atomic>
#include <functional>
#include <future>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/HostLookUp.h"
#include "Engine/Notes/Transaction.h"
#include "Engine/Stores/Dropbox/DropboxConfiguration.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Folder/MountedVolumes.h"
#include "Engine/Stores/StoreOperations.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/InboxUUID.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/QVSyncProgress.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncStoreLayout.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/DropboxBrowser.h"
#include "Support/DropboxServer.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/HangingVolume.h"
#include "Support/HostileDiscoveryDaemon.h"
#include "Support/MemoryStore.h"
#include "Support/Namespaces.h"
#include "Support/PrivateBus.h"
#include "Support/PrivateNetwork.h"
#include "Support/PromptingSecretService.h"
#include "Support/ScriptedServer.h"
#include "Support/SecretService.h"
#include "Support/SetDefault.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

/// The maximum time in milliseconds that quitting may wait for stores.
constexpr qint64 QuittingLimit = 2000;

const QString DropboxAccountName = QStringLiteral("kim@example.org");

/// Is cancelled after the first look whether it is.
class SoonCancelledFuture : public EngineFuture {
public:
    SoonCancelledFuture() : m_cancelNow([this] { cancel(); }) {}
    bool isCancelled() const override {
        const bool isCancelled = EngineFuture::isCancelled();
        m_cancelNow();
        return isCancelled;
    }

private:
    const std::function<void()> m_cancelNow;
};

/// Sends the body of a response one byte at a time.
void respondSlowly(ScriptedServer::Connection &connection) {
    connection.readRequest();
    connection.send("HTTP/1.1 207 Multi-Status\r\nContent-Length: 100000\r\n\r\n");
    connection.sendSlowly(QByteArray(100'000, 'x'));
}

}  // namespace

/// Locations that do not respond, beside one that does.
class HangingLocationTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<HangingVolume> m_volume;
    std::unique_ptr<ScriptedServer> m_server;
    std::unique_ptr<DirectConnectionPeer> m_peer;
    std::unique_ptr<QTcpServer> m_silent;
    std::unique_ptr<SilentNameServer> m_nameServer;
    std::unique_ptr<HostileDiscoveryDaemon> m_daemon;
    /// The system bus, of which libraries look up the address once.
    std::unique_ptr<PrivateBus> m_bus;

    static void addKindsOfServers() {
        QTest::addColumn<QByteArray>("kind");
        for (const char *kind :
             {"silent WebDAV server", "slow WebDAV server", "silent direct connection",
              "dripping direct connection", "silent Dropbox", "silent name server",
              "silent discovery daemon"}) {
            QTest::newRow(kind) << QByteArray(kind);
        }
    }
    static void addKinds() {
        addKindsOfServers();
        QTest::newRow("hanging volume") << QByteArray("hanging volume");
    }
    /// Starts the counterpart of a location that does not respond, and returns its URL.
    QString hangingURL(const QByteArray &kind) {
        if (kind == "hanging volume") {
            const QString path = m_folder->filePath(QStringLiteral("volume"));
            m_volume = std::make_unique<HangingVolume>(path);
            return Url::fileURL(path + QStringLiteral("/Shared.qvSyncStore")).absoluteString();
        }
        if (kind == "silent direct connection") {
            m_silent = std::make_unique<QTcpServer>();
            m_silent->listen(QHostAddress::LocalHost);
            return QStringLiteral("%1://127.0.0.1:%2")
                .arg(DirectConnection::URLScheme)
                .arg(m_silent->serverPort());
        }
        if (kind == "dripping direct connection") {
            m_peer =
                DirectConnectionPeer::dripping(*DirectConnectionIdentity::load(m_folder->path()));
            return QStringLiteral("%1://127.0.0.1:%2")
                .arg(DirectConnection::URLScheme)
                .arg(m_peer->port());
        }
        if (kind == "silent Dropbox") {
            m_silent = std::make_unique<QTcpServer>();
            m_silent->listen(QHostAddress::LocalHost);
            DropboxTokens{.access = QByteArray("access"), .refresh = QByteArray("refresh")}.store(
                DropboxAccountName);
            return dropboxURL(m_silent->serverPort());
        }
        if (kind == "silent name server") {
            m_nameServer = std::make_unique<SilentNameServer>();
            return QStringLiteral("%1://silent.example").arg(DirectConnection::URLScheme);
        }
        if (kind == "silent discovery daemon") {
            m_daemon = std::make_unique<HostileDiscoveryDaemon>(
                m_bus->address(), HostileDiscoveryDaemon::Attack::Silence);
            return QStringLiteral("%1://silent.local").arg(DirectConnection::URLScheme);
        }
        const bool isSilent = kind == "silent WebDAV server";
        m_server = std::make_unique<ScriptedServer>(
            isSilent ? [](ScriptedServer::Connection &connection) { connection.waitUntilClosed(); }
                     : &respondSlowly);
        return m_server->URLText(QStringLiteral("Shared.qvSyncStore"));
    }
    /// The URL of an account at a server on this computer.
    static QString dropboxURL(quint16 port) {
        const QString address = QStringLiteral("http://127.0.0.1:%1").arg(port);
        setDefault(DropboxConfiguration::ApplicationKeyDefault, QStringLiteral("key"));
        setDefault(DropboxConfiguration::TokenAddressDefault, address);
        setDefault(DropboxConfiguration::APIAddressDefault, address);
        setDefault(DropboxConfiguration::ContentAddressDefault, address);
        return QStringLiteral("dropbox://") + DropboxAccountName;
    }
    std::shared_ptr<QVSyncState> stateAt(const std::shared_ptr<QVSyncLocation> &location) {
        const auto state = m_host->addState(location, m_host->inbox());
        state->setEnabled(true);
        m_host->save();
        return state;
    }
    QVSyncDispatcher &dispatcher() { return *m_host->engine().plugin().dispatcher(); }
    /// Quits and returns how long that took in milliseconds.
    qint64 quit() {
        QElapsedTimer time;
        time.start();
        m_host.reset();
        return time.elapsed();
    }

private Q_SLOTS:
    void initTestCase() {
        m_bus = std::make_unique<PrivateBus>();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", m_bus->address().toUtf8());
    }
    void cleanupTestCase() {
        // They use static objects.
        QTRY_VERIFY_WITH_TIMEOUT(!HostLookUp::isAnyRunning(), 60'000);
    }
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_host = std::make_unique<TestHost>();
        m_host->leaveUnverified("a location that hangs would be read");
    }
    void cleanup() {
        m_host.reset();
        m_server.reset();
        m_peer.reset();
        m_silent.reset();
        DropboxServer::forget();
        m_nameServer.reset();
        m_daemon.reset();
        m_volume.reset();
        m_folder.reset();
    }

    void anotherLocationOfTheDatabaseIsNotDelayed_data() { addKinds(); }
    void anotherLocationOfTheDatabaseIsNotDelayed() {
        QFETCH(QByteArray, kind);
        const auto hanging = stateAt(m_host->addLocation(hangingURL(kind)));
        const auto sound = stateAt(m_host->addLocation());
        bool isDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates({hanging});
        dispatcher().performSynchronizationsWithSynchronizationStates({sound},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        QVERIFY(sound->lastSynced().isValid());
        QVERIFY(!hanging->lastSynced().isValid());
        QVERIFY(!dispatcher().activity().isEmpty());
    }

    void aSynchronizationWithoutProgressIsEnded_data() { addKindsOfServers(); }
    void aSynchronizationWithoutProgressIsEnded() {
        QFETCH(QByteArray, kind);
        dynamic_cast<EngineDispatcher &>(dispatcher()).setStallLimit(std::chrono::seconds(1));
        const auto hanging = stateAt(m_host->addLocation(hangingURL(kind)));
        bool isDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates({hanging},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        const std::optional<QVSyncResult> result = QVSyncResult::of(hanging.get());
        QVERIFY(result && result->error);
        const QString text = result->error->localizedDescription;
        QVERIFY2(text.contains(QStringLiteral("takes too long")), qPrintable(text));
    }

    void aSlowSynchronizationWithProgressIsNotEnded() {
        using namespace std::chrono_literals;
        auto &jobs = dynamic_cast<EngineDispatcher &>(dispatcher());
        jobs.setStallLimit(4s);
        // So many notes are compared before any is merged.
        for (int i = 0; i < 11; ++i) {
            Note note{.text = QString::number(i)};
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        MemoryStore::Blobs blobs;
        for (int i = 0; i < 12; ++i) {
            const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
            Transaction transaction;
            transaction.operations.append(Operation::make(UUID, {}, UUID, {}, {}));
            blobs[QStringLiteral("transactions/@inbox/") + UUID + SyncStoreLayout::RecordEnding] =
                transaction.encoded();
        }
        const auto store = std::make_shared<MemoryStore>(blobs, [] {
            QThread::msleep(500);
            return MemoryStore::Fault::None;
        });
        QElapsedTimer time;
        time.start();
        std::optional<Expected<void>> result;
        jobs.synchronizeWithStore({InboxUUID, {}, QStringLiteral("slow")}, store,
                                  [&](const Expected<void> &each) { result = each; });
        QTRY_VERIFY(result);
        QVERIFY2(*result, qPrintable(description(*result)));
        QCOMPARE_GT(time.elapsed(), 6000);
        QCOMPARE(m_host->inbox()->countOfNotes(), 23);
    }

    void anImportThatTakesTooLongIsEnded_data() { addKindsOfServers(); }
    void anImportThatTakesTooLongIsEnded() {
        QFETCH(QByteArray, kind);
        m_host->engine().plugin().context().storeOperations->setTimeLimit(
            {std::chrono::seconds(1)});
        const auto location = m_host->addLocation(hangingURL(kind));
        const auto store = location->createStore();
        std::promise<std::optional<Error>> opened;
        auto error = opened.get_future();
        store->openWithCompletionHandler(
            [&](const std::optional<Error> &each) { opened.set_value(each); });
        QTRY_VERIFY(error.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
        const QString text = error.get().value_or(Error()).localizedDescription;
        QVERIFY2(text.contains(QStringLiteral("takes too long")), qPrintable(text));
    }

    void isVolumeMountedDoesNotAccessTheVolume() {
        const QString path = m_folder->filePath(QStringLiteral("a \\ volume\twith\nsigns"));
        m_volume = std::make_unique<HangingVolume>(path);
        QVERIFY(MountedVolumes::mountPoints().value().contains(path));
        QVERIFY(!QVSyncPlugin::plugin()->isVolumeMountedAtPath(
            QStringLiteral("/media/nobody/No Such Volume/a.qvSyncStore")));
    }

    void aLookUpWithoutAThreadFails() {
        // Those of other functions may take long to end.
        QTRY_VERIFY_WITH_TIMEOUT(!HostLookUp::isAnyRunning(), 60'000);
        const EngineFuture future;
        std::optional<Error> error;
        runWithFailingSystemCall(SYS_clone3, EAGAIN, [&] {
            const auto found = HostLookUp::addresses(QStringLiteral("host.example"), 1, future);
            error = found ? std::nullopt : std::optional(found.error());
        });
        QCOMPARE(code(error), EngineErrorCode::StoreUnreachable);
        QVERIFY(!HostLookUp::isAnyRunning());
    }

    void anImportWithoutAThreadFails() {
        const auto store = m_host->addLocation()->createStore();
        std::promise<std::optional<Error>> opened;
        auto error = opened.get_future();
        runWithFailingSystemCall(SYS_clone3, EAGAIN, [&] {
            store->openWithCompletionHandler(
                [&](const std::optional<Error> &each) { opened.set_value(each); });
        });
        QTRY_VERIFY(error.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
        const auto reason = error.get();
        QVERIFY(reason);
        QVERIFY2(reason->localizedDescription.contains(QStringLiteral("thread")),
                 qPrintable(reason->localizedDescription));
    }

    void manyHangingLocationsDelayNoOther() {
        QVSyncStates hanging;
        const QString URL = hangingURL("silent direct connection");
        for (int i = 0; i < 20; ++i) {
            hanging.append(stateAt(m_host->addLocation(URL)));
        }
        const auto sound = stateAt(m_host->addLocation());
        bool isDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates(hanging);
        dispatcher().performSynchronizationsWithSynchronizationStates({sound},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        QVERIFY(sound->lastSynced().isValid());
    }

    void stoppingTakesEffectAtOnce_data() { addKinds(); }
    void stoppingTakesEffectAtOnce() {
        QFETCH(QByteArray, kind);
        const auto location = m_host->addLocation(hangingURL(kind));
        const auto hanging = stateAt(location);
        const auto waiting = location->addStateForDatabaseWithUUID(
            m_host->addDatabase(QStringLiteral("Projects"))->UUID(), QStringLiteral("Projects"));
        waiting->setEnabled(true);
        const auto sound = stateAt(m_host->addLocation());
        bool isDone = false;
        bool isWaitingDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates({hanging});
        dispatcher().performSynchronizationsWithSynchronizationStates(
            {waiting}, [&] { isWaitingDone = true; });
        dispatcher().performSynchronizationsWithSynchronizationStates({sound},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        QCOMPARE(QVSyncProgress::of(&dispatcher()).activity, dispatcher().activity());
        QVERIFY(QVSyncProgress::of(&dispatcher()).phase != QVSyncProgress::Phase::Idle);
        QSignalSpy announced(&dispatcher(), &QVSyncDispatcher::activityChanged);
        QVERIFY(QMetaObject::invokeMethod(&dispatcher(), "stop"));
        QCOMPARE(announced.count(), 1);
        QCOMPARE(dispatcher().activity(), QString());
        QCOMPARE(QVSyncProgress::of(&dispatcher()), QVSyncProgress());
        QVERIFY(!isWaitingDone);
        QTRY_VERIFY(isWaitingDone);
        QVERIFY(!QVSyncResult::of(hanging.get()));
        // What was stopped does not delay other locations.
        isDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates({sound},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
    }

    void quittingDoesNotWaitForASynchronization_data() { addKinds(); }
    void quittingDoesNotWaitForASynchronization() {
        QFETCH(QByteArray, kind);
        const auto hanging = stateAt(m_host->addLocation(hangingURL(kind)));
        const auto sound = stateAt(m_host->addLocation());
        bool isDone = false;
        dispatcher().performSynchronizationsWithSynchronizationStates({hanging});
        dispatcher().performSynchronizationsWithSynchronizationStates({sound},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        const qint64 time = quit();
        QVERIFY2(time < QuittingLimit, qPrintable(QString::number(time)));
    }

    void quittingDoesNotWaitForAListing() {
        // Reading it takes longer than quitting may.
        const QByteArray response = "<D:response><D:href>/b.qvSyncStore/x/x</D:href></D:response>";
        const QByteArray body = "<?xml version=\"1.0\"?><D:multistatus xmlns:D=\"DAV:\">" +
                                response.repeated(400'000) + "</D:multistatus>";
        const auto isSent = std::make_shared<std::atomic<bool>>(false);
        m_server = std::make_unique<ScriptedServer>([=](ScriptedServer::Connection &connection) {
            connection.readRequest();
            connection.answer("207 Multi-Status", body);
            *isSent = true;
            connection.waitUntilClosed();
        });
        const auto hanging =
            stateAt(m_host->addLocation(m_server->URLText(QStringLiteral("Shared.qvSyncStore"))));
        dispatcher().performSynchronizationsWithSynchronizationStates({hanging});
        QTRY_VERIFY(*isSent);
        const qint64 time = quit();
        QVERIFY2(time < QuittingLimit, qPrintable(QString::number(time)));
    }

    void quittingDoesNotWaitForAnImport_data() { addKinds(); }
    void quittingDoesNotWaitForAnImport() {
        QFETCH(QByteArray, kind);
        std::atomic<int> answers = 0;
        auto store = m_host->addLocation(hangingURL(kind))->createStore();
        store->openWithCompletionHandler([&](const std::optional<Error> &) { ++answers; });
        store.reset();
        // What hangs has begun when a later operation has ended.
        auto sound = m_host->addLocation()->createStore();
        sound->openWithCompletionHandler([&](const std::optional<Error> &) { ++answers; });
        QTRY_COMPARE(answers.load(), 1);
        sound.reset();
        const qint64 time = quit();
        QVERIFY2(time < QuittingLimit, qPrintable(QString::number(time)));
        // The handler refers to this function.
        m_volume.reset();
        QTRY_COMPARE(answers.load(), 2);
    }

    void aLookUpOfAPasswordCanBeCancelled_data() {
        QTest::addColumn<bool>("isDropbox");
        QTest::newRow("WebDAV") << false;
        QTest::newRow("Dropbox") << true;
    }
    void aLookUpOfAPasswordCanBeCancelled() {
        QFETCH(const bool, isDropbox);
        SecretService keyring;
        keyring.stopKeyring();
        const PromptingSecretService prompting(keyring.busAddress(),
                                               PromptingSecretService::User::LooksAway);
        m_server = std::make_unique<ScriptedServer>([](ScriptedServer::Connection &connection) {
            connection.readRequest();
            connection.answer("401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"x\"", {});
        });
        const QString name = QStringLiteral("Shared.qvSyncStore");
        const QString URL = isDropbox ? dropboxURL(m_server->port()) : m_server->URLText(name);
        const auto store = m_host->newLocation(Url::fromString(URL))->createBlobStore();
        EngineFuture opening;
        std::future<EngineErrorCode> opened;
        // None prompts while the cancelled look-up of the row before waits for its service to end.
        const auto openUntilPrompted = [&] {
            if (!opened.valid() ||
                opened.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
                opened = std::async(std::launch::async, [&] { return code(store->open(opening)); });
            }
            return prompting.countOfPrompts();
        };
        QTRY_COMPARE(openUntilPrompted(), 1);
        opening.cancel();
        QCOMPARE(opened.get(), EngineErrorCode::Cancelled);
    }

    void aRequestThatWaitsForAnotherCanBeCancelled() {
        const QString URL = hangingURL("silent direct connection");
        const auto store = m_host->newLocation(Url::fromString(URL))->createBlobStore();
        EngineFuture opening;
        const SoonCancelledFuture listing;
        auto opened = std::async(std::launch::async, [&] { return code(store->open(opening)); });
        QTRY_VERIFY(m_silent->hasPendingConnections());
        QCOMPARE(code(store->list(QStringLiteral("databases"), listing)),
                 EngineErrorCode::Cancelled);
        QVERIFY(opened.wait_for(std::chrono::seconds(0)) == std::future_status::timeout);
        opening.cancel();
        QCOMPARE(opened.get(), EngineErrorCode::Cancelled);
    }

    void quittingDoesNotWaitForASignIn() {
        DropboxServer server;
        server.configure();
        DropboxBrowser browser;
        browser.onlyRemember();
        const auto session = requiredHostClass<QVDropboxSessionManager>().sessionWithURL(Url());
        session->authorizeWithFuture(PZFuture::future(), [](const auto &, const auto &) {});
        QTRY_VERIFY(!browser.opened().isEmpty());
        const qint64 time = quit();
        QVERIFY2(time < QuittingLimit, qPrintable(QString::number(time)));
        DropboxServer::forget();
    }

    void quittingDoesNotWaitForSettingsOfASignIn() {
        const auto useSettingsIn = [](const QString &folder) {
            QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
        };
        const QString folder = QFileInfo(QSettings().fileName()).absolutePath();
        const QString path = m_folder->filePath(QStringLiteral("volume"));
        m_volume = std::make_unique<HangingVolume>(path);
        auto manager = std::make_unique<DropboxSessionManager>();
        std::optional<EngineErrorCode> answer;
        useSettingsIn(path);
        manager->authorize(PZFuture::future(), [&](const auto &signIn) { answer = code(signIn); });
        QElapsedTimer time;
        time.start();
        manager.reset();
        QCOMPARE_LT(time.elapsed(), QuittingLimit);
        useSettingsIn(QFileInfo(folder).path());
        QCOMPARE(answer, std::optional(EngineErrorCode::Cancelled));
    }

    void aLookUpCanBeCancelled_data() {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("name server") << QByteArray("silent name server");
        QTest::newRow("discovery daemon") << QByteArray("silent discovery daemon");
    }
    void aLookUpCanBeCancelled() {
        QFETCH(QByteArray, kind);
        const QString host = QUrl(hangingURL(kind)).host();
        EngineFuture future;
        auto found = std::async(std::launch::async,
                                [&] { return code(HostLookUp::addresses(host, 1, future)); });
        QTRY_VERIFY(m_daemon ? m_daemon->countOfMessages() > 0 : m_nameServer->wasAsked());
        QElapsedTimer time;
        time.start();
        future.cancel();
        QCOMPARE(found.get(), EngineErrorCode::Cancelled);
        // Both would be given up after ten seconds.
        QCOMPARE_LT(time.elapsed(), 5000);
    }

    void aServerThatCannotBeLookedUpIsNotSaidToBeMissing() {
        const EngineFuture future;
        // There is no name server, and the other host has no valid name.
        QCOMPARE(description(HostLookUp::addresses(QStringLiteral("absent.example"), 1, future)),
                 QStringLiteral("The address of the server “absent.example” could not be looked "
                                "up. Check the network connection and try again."));
        QCOMPARE(description(HostLookUp::addresses(QStringLiteral("a..b"), 1, future)),
                 QStringLiteral("The server “a..b” was not found. Check its name and the network "
                                "connection."));
    }

    void lookUpsThatDoNotEndAreLimited() {
        const SilentNameServer server;
        const QString host = QStringLiteral("silent.example");
        EngineFuture cancelled;
        cancelled.cancel();
        for (int i = 0; i < HostLookUp::MostLookUps; ++i) {
            QVERIFY(!HostLookUp::addresses(host, 1, cancelled));
        }
        const EngineFuture future;
        QElapsedTimer time;
        time.start();
        const auto found = HostLookUp::addresses(host, 1, future);
        QCOMPARE(code(found), EngineErrorCode::StoreUnreachable);
        QCOMPARE(description(found),
                 QStringLiteral("The address of the server “silent.example” was not looked up "
                                "because too many look-ups are still running. Try again in a "
                                "minute."));
        // The system would need ten seconds.
        QCOMPARE_LT(time.elapsed(), 5000);
    }
};

VELMORA_TEST_PROGRAM(HangingLocationTest)(int argumentCount, char **arguments) {
    enterPrivateNetwork();
    if (!HangingVolume::isAvailable()) {
        std::fputs("Skipped: this system does not allow tests to mount a file system.\n", stderr);
        return CannotRunExitCode;
    }
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    HangingLocationTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "HangingLocationTest.moc"
