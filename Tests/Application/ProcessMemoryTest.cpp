#include "Application/ProcessProtection.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore/QProcess>
#include <QtCore/QSettings>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <csignal>
#include <functional>
#include <memory>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionClients.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Host/DefaultsKeys.h"
#include "Host/InboxUUID.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/DropboxTestCase.h"
#include "Support/EventTimeout.h"
#include "Support/FreePort.h"
#include "Support/NameOfProgram.h"
#include "Support/ProgramMemory.h"
#include "Support/SecretService.h"
#include "Support/TestApplication.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

namespace {

const QString NoteTitle = QStringLiteral("Title that may be in memory");

}  // namespace

/// Looks for the password of a WebDAV location, the tokens of Dropbox and the secret of a pairing
/// in the memory of the program itself, after it has synchronized or served.
class ProcessMemoryTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<WebDAVServer> m_server;

    QString profile() const { return m_folder->filePath(QStringLiteral("profile")); }
    QString runtimeFolder() const { return m_folder->filePath(QStringLiteral("run")); }

    /// Writes a profile whose inbox synchronizes with this address when the program starts, and
    /// calls `prepare` with its location.
    void writeProfile(
        const QString &URLText,
        const std::function<void(SyncEngine &, const EngineSyncLocation &)> &prepare =
            [](SyncEngine &, const EngineSyncLocation &) {}) {
        const TestApplication application;
        SyncEngine engine;
        QVERIFY(engine.openProfile(profile(), FirstContents::Inbox, ProfileUse::Edit));
        Note note{.title = NoteTitle, .text = QStringLiteral("Text")};
        QVERIFY(engine.library()->inbox()->saveNote(note));
        auto *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(Url::fromString(URLText));
        locations->insertObjectInSyncLocationsAtIndex(location, 0);
        const auto state =
            location->addStateForDatabaseWithUUID(InboxUUID, QStringLiteral("Inbox"));
        state->setEnabled(true);
        state->setSyncOnOpen(true);
        std::optional<Error> error;
        QVERIFY(locations->save(&error));
        prepare(engine, dynamic_cast<const EngineSyncLocation &>(*location));
    }

    /// Stores the password as the program does.
    void storePassword() const {
        const NameOfProgram name;
        SecretStore store;
        const Url URL = Url::fromString(m_server->URLText(QString()));
        for (const QString &method :
             {UrlAuthenticationMethodHttpBasic, UrlAuthenticationMethodHttpDigest}) {
            UrlCredentialStorage(store).setCredentialForProtectionSpace(
                {.user = WebDAVServer::User,
                 .password = WebDAVServer::Password,
                 .persistence = UrlCredential::Persistence::Permanent},
                UrlProtectionSpace::ofURL(URL, method));
        }
        QVERIFY(store.finishWriting());
    }

    /// Stores a pairing as the program does.
    static void storePairing(const QString &key, const QByteArray &fingerprint,
                             const SecretBytes &secret, const ProfileDatabase &profile) {
        const NameOfProgram name;
        const auto pairings = std::make_shared<DirectConnectionPairings>(profile);
        pairings->keep(key, fingerprint, secret);
        const auto isSaved = [&] {
            DirectConnectionPairings saved(profile);
            return saved.load() && saved.fingerprint(key) == fingerprint;
        };
        QTRY_VERIFY(isSaved());
        QVERIFY(SecretStore::shared().finishWriting());
    }

    /// Stores that a client of this name may connect, as the program does.
    static void storeClient(const QString &client, const SecretBytes &secret) {
        {
            const NameOfProgram name;
            DirectConnectionClients::authorize(client, secret);
        }
        QVERIFY(SecretStore::shared().finishWriting());
    }
    /// Stores that the program serves on `port`, as its sheet does.
    void serve(quint16 port) const {
        QSettings settings(settingsFile(), QSettings::NativeFormat);
        settings.setValue(DefaultsKeys::DirectConnectionServerPortNumber, port);
        settings.setValue(DefaultsKeys::DirectConnectionServerEnabled, true);
    }
    /// Returns whether the server on `port` has let the client in and listed a folder.
    static bool isServed(quint16 port, const QString &client, const SecretBytes &secret) {
        using namespace DirectConnectionMessage;
        const EngineFuture future;
        DirectConnectionLink link;
        if (!link.connect(QStringLiteral("127.0.0.1"), port, future)) {
            return false;
        }
        QCborMap greeting = ofType(Hello);
        greeting[Name] = client;
        greeting[Secret] = secret.toByteArray();
        QCborMap list = ofType(List);
        list[Folder] = QStringLiteral("databases");
        const DirectConnectionLink::Timeouts timeouts{.idle = std::chrono::minutes(1)};
        const auto welcome = link.exchange(encode(greeting), Limit, timeouts, future);
        if (!welcome || welcome->values[Type].toString() != Welcome) {
            return false;
        }
        const auto names = link.exchange(encode(list), Limit, timeouts, future);
        return names && names->values[Type].toString() == Done;
    }

    QString settingsFile() const {
        return m_folder->filePath(QStringLiteral("config/Velmora/Velmora.conf"));
    }
    /// Signs in to the account that `server` serves, and stores its tokens as the program does.
    void signIn(const DropboxServer &server) const {
        {
            const TestHost host;
            DropboxTestCase::signIn(server.email());
        }
        const auto tokens = DropboxTokens::stored(server.email());
        QVERIFY(tokens && *tokens);
        {
            const NameOfProgram name;
            (*tokens)->store(server.email());
        }
        QVERIFY(SecretStore::shared().finishWriting());
        QSettings settings(settingsFile(), QSettings::NativeFormat);
        for (const QString &key : QSettings().allKeys()) {
            settings.setValue(key, QSettings().value(key));
        }
    }
    /// Stores that the user has accepted the sheet of the location, as the program does.
    void acceptUnencryptedPassword() const {
        QSettings settings(settingsFile(), QSettings::NativeFormat);
        settings.setValue(
            QStringLiteral("QVUnencryptedPasswordAccepted localhost:%1").arg(m_server->port()),
            true);
    }

    std::unique_ptr<QProcess> start() const {
        QDir().mkdir(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder->path());
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                           m_folder->filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setChildProcessModifier([] {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            ProgramMemory::dropPrivileges();
        });
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(VELMORA),
                       {QStringLiteral("--profile"), profile(), QStringLiteral("--begin"),
                        QStringLiteral("examples")});
        return process;
    }

    /// Whether the profile records a synchronization that has succeeded.
    bool isSynchronized() const { return isRecorded(QStringLiteral("last_synced > 0")); }
    /// Whether it records one that the other computer, after it was greeted, could not serve.
    bool isRefused() const {
        return isRecorded(
            QStringLiteral("result_reason LIKE '%cannot read or write its sync store%'"));
    }
    bool isRecorded(const QString &condition) const {
        const QString connection = QStringLiteral("process-memory-test");
        bool isRecorded = false;
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(profile() + QStringLiteral("/profile.sqlite"));
            QSqlQuery query(database.open() ? database : QSqlDatabase());
            isRecorded = query.exec(QStringLiteral("SELECT 1 FROM states WHERE ") + condition) &&
                         query.next();
        }
        QSqlDatabase::removeDatabase(connection);
        return isRecorded;
    }

private Q_SLOTS:
    void initTestCase() { m_secrets = std::make_unique<SecretService>(); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void aProtectedProcessWritesNoCoreFileAndCannotBeReadByOthers_data() {
        using Debuggers = ProcessProtection::Debuggers;
        QTest::addColumn<Debuggers>("debuggers");
        QTest::newRow("protected") << Debuggers::Refused;
        QTest::newRow("sanitized") << Debuggers::Allowed;
    }
    void aProtectedProcessWritesNoCoreFileAndCannotBeReadByOthers() {
        QFETCH(const ProcessProtection::Debuggers, debuggers);
        int ready[2];
        QCOMPARE(pipe2(ready, O_CLOEXEC), 0);
        const pid_t child = fork();
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            rlimit limit = {1, 1};
            const bool isApplied =
                ProgramMemory::giveUpPrivileges() && ProcessProtection::apply(debuggers) &&
                getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_cur == 0 && limit.rlim_max == 0;
            const bool isTold = write(ready[1], &isApplied, 1) == 1;
            pause();
            _exit(isTold ? EXIT_SUCCESS : EXIT_FAILURE);
        }
        bool isApplied = false;
        const bool isTold = read(ready[0], &isApplied, 1) == 1;
        const bool isOpen = ProgramMemory::isOpenToOthers(child);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(ready[0]);
        close(ready[1]);
        QVERIFY(isTold && isApplied);
        QCOMPARE(isOpen, debuggers == ProcessProtection::Debuggers::Allowed);
    }

    void theProgramIsProtected() {
        // The leak check of a sanitizer needs what the program refuses to others.
#ifdef VELMORA_IS_SANITIZED
        constexpr bool isSanitized = true;
#else
        constexpr bool isSanitized = false;
#endif
        writeProfile(QStringLiteral("file:///nowhere"));
        const auto process = start();
        const auto hasEnded = [&] { return isRecorded(QStringLiteral("result_date > 0")); };
        QTRY_VERIFY(hasEnded());
        QFile limits(QStringLiteral("/proc/%1/limits").arg(process->processId()));
        QVERIFY(limits.open(QIODevice::ReadOnly));
        const QString text = QString::fromLatin1(limits.readAll()).simplified();
        QVERIFY2(text.contains(QStringLiteral("Max core file size 0 0 bytes")), qPrintable(text));
        QCOMPARE(ProgramMemory::isOpenToOthers(process->processId()), isSanitized);
        process->terminate();
        QVERIFY(process->waitForFinished(EventTimeout));
    }

    void aPasswordDoesNotStayInMemoryAfterASynchronization_data() {
        using Authentication = WebDAVServer::Authentication;
        QTest::addColumn<Authentication>("authentication");
        QTest::newRow("Basic") << Authentication::Basic;
        QTest::newRow("Digest") << Authentication::Digest;
    }
    void aPasswordDoesNotStayInMemoryAfterASynchronization() {
        QFETCH(const WebDAVServer::Authentication, authentication);
        m_server =
            std::make_unique<WebDAVServer>(WebDAVServer::Options{.authentication = authentication});
        writeProfile(m_server->URLText(QStringLiteral("Shared.qvSyncStore")));
        storePassword();
        acceptUnencryptedPassword();
        const auto process = start();
        QTRY_VERIFY(isSynchronized());

        const ProgramMemory memory(process->processId());
        QVERIFY(memory.containsAny({NoteTitle}));
        const QString login = WebDAVServer::User + u':' + WebDAVServer::Password;
        QVERIFY(!memory.containsAny({WebDAVServer::Password, login}));
        process->terminate();
        QVERIFY(process->waitForFinished(EventTimeout));
    }

    void theTokensOfDropboxDoNotStayInMemoryAfterASynchronization() {
        DropboxServer server;
        server.configure();
        signIn(server);
        writeProfile(QStringLiteral("dropbox://") + server.email());
        DropboxServer::forget();
        // The program gets new ones.
        server.expireAccessTokens();
        const auto process = start();
        QTRY_VERIFY(isSynchronized());

        const ProgramMemory memory(process->processId());
        QVERIFY(memory.containsAny({NoteTitle}));
        // A verifier, a code, two tokens, and at least a new one of them.
        const QStringList secrets = server.secrets();
        QVERIFY(secrets.size() >= 5);
        QVERIFY(!memory.containsAny(secrets));
        process->terminate();
        QVERIFY(process->waitForFinished(EventTimeout));
        QCOMPARE(server.violations(), QStringList());
    }

    void theSecretOfAPairingDoesNotStayInMemoryAfterASynchronization() {
        const auto identity = DirectConnectionIdentity::load(m_folder->path());
        QVERIFY(identity);
        using namespace DirectConnectionMessage;
        const DirectConnectionPeer peer(
            *identity, {encode(ofType(Welcome)), encode(ofType(Failed)), encode(ofType(Failed))},
            1 << 16);
        const SecretBytes secret = DirectConnectionPairing::random();
        const QString address =
            QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(peer.port());
        writeProfile(address, [&](SyncEngine &engine, const EngineSyncLocation &location) {
            storePairing(address + u' ' + location.identifier(),
                         DirectConnectionIdentity::fingerprint(identity->certificate.toDer()),
                         secret, engine.profile());
        });
        const auto process = start();
        QTRY_VERIFY(isRefused());

        const ProgramMemory memory(process->processId());
        QVERIFY(memory.containsAny({address}));
        QVERIFY(!memory.contains(secret.toByteArray()));
        process->terminate();
        QVERIFY(process->waitForFinished(EventTimeout));
    }

    void theSecretOfAClientDoesNotStayInTheMemoryOfTheServer() {
        const QString client = QStringLiteral("kim at writing-desk");
        const SecretBytes secret = DirectConnectionPairing::random();
        const quint16 port = freePort();
        writeProfile(QStringLiteral("file:///nowhere"));
        storeClient(client, secret);
        serve(port);
        const auto process = start();
        QTRY_VERIFY(isServed(port, client, secret));

        // Once it has noticed that the client has left.
        const auto isForgotten = [&] {
            const ProgramMemory memory(process->processId());
            return memory.containsAny({NoteTitle}) && !memory.contains(secret.toByteArray());
        };
        QTRY_VERIFY(isForgotten());
        process->terminate();
        QVERIFY(process->waitForFinished(EventTimeout));
    }
};

VELMORA_TEST(ProcessMemoryTest)
#include "ProcessMemoryTest.moc"
