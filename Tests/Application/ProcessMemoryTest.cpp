#include "Application/ProcessProtection.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore/QProcess>
#include <QtCore/QSettings>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <algorithm>
#include <functional>
#include <memory>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Host/InboxUUID.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/DirectConnectionPeer.h"
#include "Support/DropboxTestCase.h"
#include "Support/Patience.h"
#include "Support/SecretService.h"
#include "Support/TestApplication.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/WebDAVServer.h"

namespace {

const QString NoteTitle = QStringLiteral("Title that may be in memory");

QByteArray inUtf16(const QString &text) {
    return {reinterpret_cast<const char *>(text.utf16()), text.size() * 2};
}

/// The contents of all writable mappings of a process that a core file would hold.
QByteArray memoryOf(qint64 process) {
    const QString folder = QStringLiteral("/proc/%1/").arg(process);
    QFile mappings(folder + QStringLiteral("smaps"));
    QFile memory(folder + QStringLiteral("mem"));
    if (!mappings.open(QIODevice::ReadOnly) ||
        !memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return {};
    }
    QByteArray contents;
    qint64 start = 0;
    qint64 size = 0;
    for (const QByteArray &line : mappings.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        const QByteArrayList range = words.first().split('-');
        if (range.size() == 2 && words.size() > 1) {
            start = range[0].toLongLong(nullptr, 16);
            size = words[1].startsWith("rw") ? range[1].toLongLong(nullptr, 16) - start : 0;
        } else if (words.first() == "VmFlags:" && size > 0 && !words.contains("dd") &&
                   size < (qint64(1) << 30) && memory.seek(start)) {
            contents += memory.read(size);
        }
    }
    return contents;
}

/// Whether one of the secrets is in `memory`, in one of the usual encodings.
bool containsAny(const QByteArray &memory, const QStringList &secrets) {
    return std::any_of(secrets.begin(), secrets.end(), [&memory](const QString &secret) {
        const QByteArray bytes = secret.toUtf8();
        return memory.contains(bytes) || memory.contains(inUtf16(secret)) ||
               memory.contains(bytes.toBase64());
    });
}

/// Whether a text that is not secret is in `memory`, so that looking for secrets means something.
bool containsText(const QByteArray &memory, const QString &text) {
    return memory.contains(text.toUtf8()) || memory.contains(inUtf16(text));
}

/// Gives secrets to the name of the program, as long as it exists.
class NameOfProgram {
public:
    NameOfProgram() { QCoreApplication::setApplicationName(QStringLiteral("Velmora")); }
    ~NameOfProgram() { QCoreApplication::setApplicationName(m_before); }
    NameOfProgram(const NameOfProgram &) = delete;
    NameOfProgram &operator=(const NameOfProgram &) = delete;

private:
    const QString m_before = QCoreApplication::applicationName();
};

}  // namespace

/// Looks for the password of a WebDAV location, the tokens of Dropbox and the secret of a pairing
/// in the memory of the program itself, after it has synchronized.
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
        QTRY_VERIFY_WITH_TIMEOUT(isSaved(), Patience);
        QVERIFY(SecretStore::shared().finishWriting());
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
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(VELMORA), {QStringLiteral("--profile"), profile()});
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

    void aProtectedProcessWritesNoCoreFileAndCannotBeReadByOthers() {
        const pid_t child = fork();
        if (child == 0) {
            rlimit limit = {1, 1};
            const bool isProtected = ProcessProtection::apply() && prctl(PR_GET_DUMPABLE) == 0 &&
                                     getrlimit(RLIMIT_CORE, &limit) == 0 && limit.rlim_cur == 0;
            _exit(isProtected ? EXIT_SUCCESS : EXIT_FAILURE);
        }
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
    }

    void theProgramIsProtected() {
        writeProfile(QStringLiteral("file:///nowhere"));
        const auto process = start();
        const auto hasEnded = [&] { return isRecorded(QStringLiteral("result_date > 0")); };
        QTRY_VERIFY_WITH_TIMEOUT(hasEnded(), Patience);
        QFile limits(QStringLiteral("/proc/%1/limits").arg(process->processId()));
        QVERIFY(limits.open(QIODevice::ReadOnly));
        const QString text = QString::fromLatin1(limits.readAll()).simplified();
        QVERIFY2(text.contains(QStringLiteral("Max core file size 0 0 bytes")), qPrintable(text));
        process->terminate();
        QVERIFY(process->waitForFinished(Patience));
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
        QTRY_VERIFY_WITH_TIMEOUT(isSynchronized(), Patience);

        const QByteArray memory = memoryOf(process->processId());
        QVERIFY(containsText(memory, NoteTitle));
        const QString login = WebDAVServer::User + u':' + WebDAVServer::Password;
        QVERIFY(!containsAny(memory, {WebDAVServer::Password, login}));
        process->terminate();
        QVERIFY(process->waitForFinished(Patience));
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
        QTRY_VERIFY_WITH_TIMEOUT(isSynchronized(), Patience);

        const QByteArray memory = memoryOf(process->processId());
        QVERIFY(containsText(memory, NoteTitle));
        // A verifier, a code, two tokens, and at least a new one of them.
        const QStringList secrets = server.secrets();
        QVERIFY(secrets.size() >= 5);
        QVERIFY(!containsAny(memory, secrets));
        process->terminate();
        QVERIFY(process->waitForFinished(Patience));
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
        QTRY_VERIFY_WITH_TIMEOUT(isRefused(), Patience);

        const QByteArray memory = memoryOf(process->processId());
        QVERIFY(containsText(memory, address));
        const QByteArray bytes = secret.toByteArray();
        QVERIFY(!memory.contains(bytes));
        QVERIFY(!memory.contains(bytes.toBase64()));
        QVERIFY(!containsAny(memory, {QString::fromLatin1(bytes.toHex())}));
        process->terminate();
        QVERIFY(process->waitForFinished(Patience));
    }
};

VELMORA_TEST(ProcessMemoryTest)
#include "ProcessMemoryTest.moc"
