#include <QtNetwork/QTcpServer>
#include <atomic>
#include <stdexcept>
#include <thread>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Security/Keychain.h"
#include "Support/AskedUser.h"
#include "Support/FreePort.h"
#include "Support/KeychainRemoval.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"
#include "Support/WebDAVServer.h"

namespace {

const QString PlansUUID = QStringLiteral("8f1dd2f4-2d04-4c06-9a0e-0d6f8f8f6f01");
const QString PlansName = QStringLiteral("Plans");
const QString SharedPackage = QStringLiteral("Shared.qvSyncStore");

/// The maximum time in milliseconds that quitting may wait for stores.
constexpr qint64 LongestQuitting = 2000;

template <class Result>
void requireSuccess(const Result &result) {
    if (!result) {
        throw std::runtime_error(result.error().localizedDescription.toStdString());
    }
}

void makeSharedPackage(const QString &folder) {
    for (const char *name : {"/databases", "/transactions"}) {
        const QString path = folder + u'/' + SharedPackage + QString::fromLatin1(name);
        QDir().mkpath(path);
        // The WebDAV server is another user.
        QFile::setPermissions(path, QFile::Permissions(0x7777));
    }
}

/// An engine of this process with its profile, which can be closed and opened again.
class ConcurrentEngine {
public:
    ConcurrentEngine() { open(); }

    void open() {
        m_engine = std::make_unique<SyncEngine>();
        requireSuccess(m_engine->openProfile(m_folder.filePath(QStringLiteral("Profile")),
                                             FirstContents::Inbox));
        if (!m_engine->library()->databaseForUUID(PlansUUID)) {
            requireSuccess(m_engine->library()->importDatabase(PlansUUID, PlansName));
        }
        m_engine->plugin().server()->setPort(m_port);
        m_engine->plugin().server()->startServing();
    }
    /// Quits and returns how long that took in milliseconds.
    qint64 quit() {
        QElapsedTimer time;
        time.start();
        m_engine.reset();
        return time.elapsed();
    }

    QStringList problemsOfProfile() {
        if (!m_engine) {
            open();
        }
        return Verification::problemsOfProfile(*m_engine);
    }

    void addLocation(const QString &URLText) {
        QVSyncLocationsController *all = m_engine->plugin().locationsController();
        const auto location = m_engine->plugin().newLocation(Url::fromString(URLText));
        location->addStateForDatabaseWithUUID(PlansUUID, PlansName)->setEnabled(true);
        all->insertObjectInSyncLocationsAtIndex(location, all->countOfSyncLocations());
        std::optional<Error> error;
        if (!all->save(&error)) {
            throw std::runtime_error(error->localizedDescription.toStdString());
        }
    }
    QList<std::shared_ptr<QVSyncLocation>> locations() const {
        return m_engine->plugin().locationsController()->syncLocations();
    }
    void removeLocation(const std::shared_ptr<QVSyncLocation> &location) {
        QVSyncLocationsController *all = m_engine->plugin().locationsController();
        all->removeObjectFromSyncLocationsAtIndex(all->indexOfObjectInSyncLocations(location));
    }

    QString directConnectionURL() const {
        return QStringLiteral("%1://127.0.0.1:%2").arg(DirectConnection::URLScheme).arg(m_port);
    }
    QVSyncDispatcher &dispatcher() { return *m_engine->plugin().dispatcher(); }

    void saveNote(const QString &title) {
        Note note{{}, title, QStringLiteral("Text"), QDateTime::currentDateTime()};
        requireSuccess(database().saveNote(note));
    }
    QSet<QString> titles() {
        const Expected<QList<Note>> notes = database().notes();
        requireSuccess(notes);
        QSet<QString> titles;
        for (const Note &note : *notes) {
            titles.insert(note.title);
        }
        return titles;
    }

private:
    NoteDatabase &database() { return *m_engine->library()->databaseForUUID(PlansUUID); }

    const QTemporaryDir m_folder;
    const quint16 m_port = freePort();
    std::unique_ptr<SyncEngine> m_engine;
};

}  // namespace

/// Two engines in one process with four locations each: a folder and a WebDAV server that they
/// share, a direct connection to each other, and a server that never responds. The user of the
/// second one's direct connection does not answer, either. What the engines do at the same time is
/// up to the system; the thread sanitizer judges it.
class ConcurrentEnginesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<AskedUser> m_user;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WebDAVServer> m_server;
    std::unique_ptr<QTcpServer> m_silent;
    std::unique_ptr<ConcurrentEngine> m_first;
    std::unique_ptr<ConcurrentEngine> m_second;
    QSet<QString> m_titles;
    /// The jobs that have ended.
    int m_ended = 0;

    /// Starts the synchronization of `count` locations of `engine`, from the one at `first` on.
    void start(ConcurrentEngine &engine, qsizetype first, qsizetype count) {
        for (const auto &location : engine.locations().mid(first, count)) {
            engine.dispatcher().performSynchronizationsWithSynchronizationStates(
                location->synchronizationStates(), [this] { ++m_ended; });
        }
    }
    void startResponding() {
        start(*m_first, 0, 3);
        start(*m_second, 0, 2);
    }
    void startHanging() {
        start(*m_first, 3, 1);
        start(*m_second, 2, 2);
    }
    void saveNotes(const QString &title) {
        for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
            const QString own = title + (engine == m_first.get() ? u'1' : u'2');
            engine->saveNote(own);
            m_titles.insert(own);
        }
    }
    /// Synchronizes so that each engine receives what the other one had before.
    void exchangeNotes() {
        for (int round = 0; round < 2; ++round) {
            m_ended = 0;
            startResponding();
            QTRY_COMPARE(m_ended, 5);
        }
        QCOMPARE(m_first->titles(), m_titles);
        QCOMPARE(m_second->titles(), m_titles);
    }

private Q_SLOTS:
    void init() {
        m_user = std::make_unique<AskedUser>();
        m_folder = std::make_unique<QTemporaryDir>();
        makeSharedPackage(m_folder->path());
        m_server = std::make_unique<WebDAVServer>(WebDAVServer::Options{});
        m_server->storePassword();
        makeSharedPackage(m_server->folder());
        m_silent = std::make_unique<QTcpServer>();
        QVERIFY(m_silent->listen(QHostAddress::LocalHost));
        m_first = std::make_unique<ConcurrentEngine>();
        m_second = std::make_unique<ConcurrentEngine>();
        for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
            const ConcurrentEngine &other = engine == m_first.get() ? *m_second : *m_first;
            engine->addLocation(Url::fileURL(m_folder->filePath(SharedPackage)).absoluteString());
            engine->addLocation(m_server->URLText(SharedPackage));
            engine->addLocation(other.directConnectionURL());
            engine->addLocation(QStringLiteral("http://ida@127.0.0.1:%1/%2")
                                    .arg(m_silent->serverPort())
                                    .arg(SharedPackage));
        }
        m_titles.clear();
        // Pairs the first with the second.
        m_user->answerAll([](const Question &) { return true; });
        m_ended = 0;
        start(*m_first, 2, 1);
        QTRY_COMPARE(m_ended, 1);
        m_ended = 0;
        QCOMPARE(m_user->asked().size(), 2);
        m_user->think();
    }
    void cleanup() {
        for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
            QCOMPARE(engine->problemsOfProfile(), QStringList());
        }
        m_second.reset();
        m_first.reset();
        m_silent.reset();
        m_server.reset();
        m_folder.reset();
        Keychain &keychain = Keychain::shared();
        const QString service = DirectConnection::ClientAuthorizationServiceName;
        for (const QString &account : keychain.accounts(service).value_or(QStringList())) {
            KeychainRemoval::removeFirst(keychain, service.toUtf8(), account.toUtf8());
        }
        m_user.reset();
    }

    void bothReceiveAllNotesWhileOtherLocationsHang() {
        startHanging();
        QTRY_COMPARE(m_user->waiting(), 2);
        for (int i = 0; i < 2; ++i) {
            saveNotes(QStringLiteral("Note %1 of ").arg(i));
            exchangeNotes();
        }
        QVERIFY(!m_first->dispatcher().activity().isEmpty());
        QVERIFY(!m_second->dispatcher().activity().isEmpty());
    }

    void removedLocationsEndTheirJobs() {
        saveNotes(QStringLiteral("Of "));
        startHanging();
        startResponding();
        QTRY_VERIFY(m_ended > 0);
        for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
            for (const auto &location : engine->locations()) {
                engine->removeLocation(location);
            }
        }
        QTRY_COMPARE(m_ended, 8);
        // The store that the second one serves may still be synchronized with it.
        for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
            QTRY_VERIFY(engine->dispatcher().activity().isEmpty());
        }
    }

    void operationsCanBeCancelledFromOtherThreads() {
        std::atomic<int> answers = 0;
        std::vector<std::jthread> threads;
        QList<std::shared_ptr<PZFuture>> futures;
        for (int i = 0; i < 5; ++i) {
            for (ConcurrentEngine *engine : {m_first.get(), m_second.get()}) {
                for (const auto &location : engine->locations()) {
                    const auto store = location->createStore();
                    futures.append(
                        store->openWithCompletionHandler([&answers, store](const auto &) {
                            store->fetchDatabasesWithCompletionHandler(
                                [&answers, store](const auto &, const auto &) { ++answers; });
                        }));
                    threads.emplace_back([future = futures.last(), delay = threads.size() % 8] {
                        std::this_thread::sleep_for(std::chrono::milliseconds(delay));
                        future->cancel();
                    });
                }
            }
        }
        QTRY_COMPARE(answers.load(), futures.size());
    }

    void quittingInTheMiddleLosesNothing() {
        for (int life = 0; life < 5; ++life) {
            m_ended = 0;
            saveNotes(QStringLiteral("Note of life %1 of ").arg(life));
            startHanging();
            startResponding();
            m_first->dispatcher().cleanRemoteStoreWithSynchronizationState(
                m_first->locations().first()->synchronizationStates().first(), [] {});
            // Each life ends at another point of its work.
            QTRY_VERIFY(m_ended >= life);
            const bool isFirstEarlier = life % 2 == 0;
            ConcurrentEngine &earlier = isFirstEarlier ? *m_first : *m_second;
            ConcurrentEngine &later = isFirstEarlier ? *m_second : *m_first;
            QVERIFY(earlier.quit() < LongestQuitting);
            QCoreApplication::processEvents();
            QVERIFY(later.quit() < LongestQuitting);
            later.open();
            earlier.open();
        }
        exchangeNotes();
    }
};

VELMORA_TEST(ConcurrentEnginesTest)
#include "ConcurrentEnginesTest.moc"
