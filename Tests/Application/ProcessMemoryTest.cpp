#include "Application/ProcessProtection.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore/QProcess>
#include <QtCore/QSettings>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>

#include "Engine/Plugin/SyncEngine.h"
#include "Host/InboxUUID.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/Patience.h"
#include "Support/SecretService.h"
#include "Support/TestApplication.h"
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

}  // namespace

/// Looks for the password of a WebDAV location in the memory of the program itself, after it has
/// synchronized.
class ProcessMemoryTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    std::unique_ptr<SecretService> m_secrets;
    std::unique_ptr<WebDAVServer> m_server;

    QString profile() const { return m_folder.filePath(QStringLiteral("profile")); }
    QString runtimeFolder() const { return m_folder.filePath(QStringLiteral("run")); }

    /// Writes a profile whose inbox synchronizes with the server when the program starts.
    void writeProfile() {
        const TestApplication application;
        SyncEngine engine;
        QVERIFY(engine.openProfile(profile(), FirstContents::Inbox, ProfileUse::Edit));
        Note note{.title = NoteTitle, .text = QStringLiteral("Text")};
        QVERIFY(engine.library()->inbox()->saveNote(note));
        auto *locations = engine.plugin().locationsController();
        const auto location = engine.plugin().newLocation(
            Url::fromString(m_server->URLText(QStringLiteral("Shared.qvSyncStore"))));
        locations->insertObjectInSyncLocationsAtIndex(location, 0);
        const auto state =
            location->addStateForDatabaseWithUUID(InboxUUID, QStringLiteral("Inbox"));
        state->setEnabled(true);
        state->setSyncOnOpen(true);
        std::optional<Error> error;
        QVERIFY(locations->save(&error));
    }

    /// Stores the password as the program does.
    void storePassword() const {
        const QString name = QCoreApplication::applicationName();
        QCoreApplication::setApplicationName(QStringLiteral("Velmora"));
        SecretStore store;
        const Url URL = Url::fromString(m_server->URLText(QString()));
        UrlCredentialStorage(store).setCredentialForProtectionSpace(
            {.user = WebDAVServer::User,
             .password = WebDAVServer::Password,
             .persistence = UrlCredential::Persistence::Permanent},
            UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpBasic));
        QVERIFY(store.finishWriting());
        QCoreApplication::setApplicationName(name);
    }

    /// Stores that the user has accepted the sheet of the location, as the program does.
    void acceptUnencryptedPassword() const {
        QSettings settings(m_folder.filePath(QStringLiteral("config/Velmora/Velmora.conf")),
                           QSettings::NativeFormat);
        settings.setValue(
            QStringLiteral("QVUnencryptedPasswordAccepted localhost:%1").arg(m_server->port()),
            true);
    }

    std::unique_ptr<QProcess> start() const {
        QDir().mkdir(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                           m_folder.filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(environment);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QStringLiteral(VELMORA), {QStringLiteral("--profile"), profile()});
        return process;
    }

    /// Whether the profile records a synchronization.
    bool isSynchronized() const {
        const QString connection = QStringLiteral("process-memory-test");
        bool isSynchronized = false;
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(profile() + QStringLiteral("/profile.sqlite"));
            QSqlQuery query(database.open() ? database : QSqlDatabase());
            isSynchronized =
                query.exec(QStringLiteral("SELECT 1 FROM states WHERE last_synced > 0")) &&
                query.next();
        }
        QSqlDatabase::removeDatabase(connection);
        return isSynchronized;
    }

private Q_SLOTS:
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

    void aPasswordDoesNotStayInMemoryAfterASynchronization() {
        m_secrets = std::make_unique<SecretService>();
        m_server = std::make_unique<WebDAVServer>(WebDAVServer::Options());
        writeProfile();
        storePassword();
        acceptUnencryptedPassword();
        const auto process = start();
        QTRY_VERIFY_WITH_TIMEOUT(isSynchronized(), Patience);

        const QByteArray memory = memoryOf(process->processId());

        // What is not secret is found in it.
        QVERIFY(memory.contains(NoteTitle.toUtf8()) || memory.contains(inUtf16(NoteTitle)));
        const QString password = WebDAVServer::Password;
        const QByteArray login = (WebDAVServer::User + u':' + password).toUtf8();
        QVERIFY(!memory.contains(password.toUtf8()));
        QVERIFY(!memory.contains(inUtf16(password)));
        QVERIFY(!memory.contains(password.toUtf8().toBase64()));
        QVERIFY(!memory.contains(login.toBase64()));
        process->terminate();
        QVERIFY(process->waitForFinished(Patience));
    }
};

VELMORA_TEST(ProcessMemoryTest)
#include "ProcessMemoryTest.moc"
