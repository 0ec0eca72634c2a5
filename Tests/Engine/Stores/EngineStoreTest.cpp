#include <sys/stat.h>
#include <sys/syscall.h>

#include <atomic>
#include <future>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Engine/Stores/Folder/LocalStore.h"
#include "Host/InboxUUID.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/MemoryStore.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString FirstUUID = QStringLiteral("11111111-1111-4111-8111-111111111111");
const QString SecondUUID = QStringLiteral("22222222-2222-4222-8222-222222222222");

struct Fetched {
    std::optional<QVRemoteDatabases> databases;
    std::optional<Error> error;
    bool wasOnMainThread = true;
};

std::optional<Error> opened(QVSyncStore &store) {
    std::promise<std::optional<Error>> promise;
    store.openWithCompletionHandler(
        [&](const std::optional<Error> &error) { promise.set_value(error); });
    return promise.get_future().get();
}

Fetched fetched(QVSyncStore &store) {
    std::promise<Fetched> promise;
    store.fetchDatabasesWithCompletionHandler([&](const auto &databases, const auto &error) {
        promise.set_value({databases, error, QThread::currentThread() == qApp->thread()});
    });
    return promise.get_future().get();
}

QStringList names(const Fetched &result) {
    QStringList list;
    for (const auto &database : result.databases.value_or(QVRemoteDatabases())) {
        list.append(database->UUID() + u'=' + database->metadata()->name());
    }
    return list;
}

/// A store that opens only when `mayOpen` is ready.
class WaitingStore : public MemoryStore {
public:
    WaitingStore(Blobs &blobs, std::future<void> mayOpen)
        : MemoryStore(blobs), m_mayOpen(std::move(mayOpen)) {}

    Expected<void> open(const EngineFuture &future) override {
        m_mayOpen.wait();
        return future.isCancelled() ? failure(operationCancelled()) : Expected<void>();
    }

private:
    const std::future<void> m_mayOpen;
};

/// Checks an empty store. Before each operation of the store, `fault` is called with its number and
/// the future of the check. Returns what was found, and the number of operations.
std::pair<QVSyncStoreCheck, int> check(
    const std::function<MemoryStore::Fault(int operation, PZFuture &future)> &fault) {
    MemoryStore::Blobs blobs;
    int operations = 0;
    std::promise<std::shared_ptr<PZFuture>> started;
    const auto future = started.get_future().share();
    const auto store =
        std::make_shared<MemoryStore>(blobs, [&] { return fault(operations++, *future.get()); });
    std::promise<QVSyncStoreCheck> promise;
    started.set_value(store->checkWithCompletionHandler(
        [&](const QVSyncStoreCheck &found) { promise.set_value(found); }));
    const QVSyncStoreCheck found = promise.get_future().get();
    // A thread that owns it last would leave its threads to the main thread's queue.
    return {found, QTest::qWaitFor([&] { return store.use_count() == 1; }) ? operations : 0};
}

/// Cancels the check of an empty store before its operation number `cancelled`.
std::pair<QVSyncStoreCheck, int> checkCancelledBefore(int cancelled) {
    return check([&](int operation, PZFuture &future) {
        if (operation == cancelled) {
            future.cancel();
        }
        return MemoryStore::Fault::None;
    });
}

QString UUIDNumber(qsizetype number) {
    return QStringLiteral("%1-1111-4111-8111-111111111111").arg(number + 1, 8, 16, QChar(u'0'));
}

QString recordNumber(qsizetype number) {
    return QStringLiteral("databases/%1.json").arg(UUIDNumber(number));
}

QByteArray recordNamed(qsizetype number, const QString &name) {
    return QJsonDocument(QJsonObject{{QStringLiteral("uuid"), UUIDNumber(number)},
                                     {QStringLiteral("name"), name},
                                     {QStringLiteral("version"), 1}})
        .toJson();
}

}  // namespace

class EngineStoreTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncLocation> m_location;

    QString record(const QString &stem) const {
        return m_location->URL().path() + QStringLiteral("/databases/%1.json").arg(stem);
    }
    void write(const QString &stem, const QByteArray &contents) const {
        QFile file(record(stem));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(contents), contents.size());
    }
    void writeSound(const QString &UUID, const QString &name) const {
        write(UUID, QJsonDocument(QJsonObject{{QStringLiteral("uuid"), UUID},
                                              {QStringLiteral("name"), name},
                                              {QStringLiteral("version"), 1}})
                        .toJson());
    }
    Fetched fetchedAfresh() const {
        const auto store = m_location->createStore();
        const std::optional<Error> error = opened(*store);
        return error ? Fetched{{}, error} : fetched(*store);
    }
    QString descriptionOfOpening(const QString &URLText) const {
        const auto store = m_host->newLocation(Url::fromString(URLText))->createStore();
        const std::optional<Error> error = opened(*store);
        return error ? error->localizedDescription : QString();
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_location = m_host->addLocation(m_host->makeSyncStore(QStringLiteral("Für unterwegs")));
    }

    void cleanup() {
        m_location.reset();
        m_host.reset();
    }

    void anEmptyFolderStoreHoldsNoDatabases() {
        const Fetched result = fetchedAfresh();
        QCOMPARE(result.databases, QVRemoteDatabases());
        QCOMPARE(result.error, std::nullopt);
        QVERIFY(!result.wasOnMainThread);
    }

    void aDatabaseIsDestroyedOnTheMainThread() {
        writeSound(FirstUUID, QStringLiteral("Projects"));
        const auto store = m_location->createStore();
        QCOMPARE(opened(*store), std::nullopt);
        std::atomic<QThread *> thread = nullptr;
        // Nobody else has references.
        store->fetchDatabasesWithCompletionHandler([&](const auto &databases, const auto &error) {
            QVERIFY(databases && !error);
            QCOMPARE(databases->size(), 1);
            QVERIFY(QThread::currentThread() != qApp->thread());
            connect(databases->first().get(), &QObject::destroyed,
                    [&thread] { thread = QThread::currentThread(); });
        });
        QTRY_VERIFY(thread.load());
        QVERIFY(thread == qApp->thread());
    }

    void aFolderStoreHoldsADatabaseForEachRecord() {
        writeSound(SecondUUID, QStringLiteral("Projects"));
        writeSound(FirstUUID, QStringLiteral("Rezepte für Ida"));
        writeSound(InboxUUID, QStringLiteral("Inbox"));
        const auto store = m_location->createStore();
        QCOMPARE(store->location(), m_location);
        QCOMPARE(opened(*store), std::nullopt);
        const Fetched result = fetched(*store);
        QCOMPARE(result.error, std::nullopt);
        QCOMPARE(names(result), QStringList({FirstUUID + QStringLiteral("=Rezepte für Ida"),
                                             SecondUUID + QStringLiteral("=Projects"),
                                             QStringLiteral("@inbox=Inbox")}));
        QCOMPARE(result.databases->first()->store(), store);
        QCOMPARE(result.databases->first()->thread(), qApp->thread());
    }

    void aDamagedRecordIsReportedAndTheOthersAreListed_data() {
        const QByteArray uuid = FirstUUID.toLatin1();
        QTest::addColumn<QString>("stem");
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("empty") << FirstUUID << QByteArray();
        QTest::newRow("no JSON") << FirstUUID << QByteArray("{\"uuid\":");
        QTest::newRow("no object") << FirstUUID << QByteArray("[1]");
        QTest::newRow("nested deeply") << FirstUUID << QByteArray(60000, '[');
        QTest::newRow("no name") << FirstUUID
                                 << QByteArray("{\"uuid\":\"" + uuid + "\",\"version\":1}");
        QTest::newRow("empty name")
            << FirstUUID << QByteArray("{\"uuid\":\"" + uuid + "\",\"name\":\" \",\"version\":1}");
        QTest::newRow("name of another type")
            << FirstUUID << QByteArray("{\"uuid\":\"" + uuid + "\",\"name\":7,\"version\":1}");
        QTest::newRow("newer") << FirstUUID
                               << QByteArray("{\"uuid\":\"" + uuid +
                                             "\",\"name\":\"n\",\"version\":2}");
        QTest::newRow("of another database")
            << SecondUUID << QByteArray("{\"uuid\":\"" + uuid + "\",\"name\":\"n\",\"version\":1}");
        QTest::newRow("no UUID") << QStringLiteral("x")
                                 << QByteArray("{\"uuid\":\"x\",\"name\":\"n\",\"version\":1}");
        for (const char *stem :
             {"AAAAAAAA-AAAA-4AAA-8AAA-AAAAAAAAAAAA", "00000000-0000-0000-0000-000000000000"}) {
            QTest::addRow("UUID %s", stem)
                << QString::fromLatin1(stem)
                << QByteArray("{\"uuid\":\"") + stem + "\",\"name\":\"n\",\"version\":1}";
        }
        QTest::newRow("too long") << FirstUUID
                                  << QByteArray("{\"uuid\":\"" + uuid +
                                                "\",\"version\":1,\"name\":\"" +
                                                QByteArray(FolderStore::RecordLimit, 'n') + "\"}");
    }

    void aDamagedRecordIsReportedAndTheOthersAreListed() {
        QFETCH(QString, stem);
        QFETCH(QByteArray, contents);
        const QString sound = QStringLiteral("33333333-3333-4333-8333-333333333333");
        writeSound(sound, QStringLiteral("Sound"));
        write(stem, contents);
        const Fetched result = fetchedAfresh();
        QCOMPARE(names(result), QStringList(sound + QStringLiteral("=Sound")));
        QVERIFY(result.error);
        QCOMPARE(result.error->domain, EngineErrorDomain);
        QVERIFY(result.error->localizedDescription.contains(record(stem)));
    }

    void aRecordThatIsNoPlainFileIsNotRead() {
        QCOMPARE(mkfifo(QFile::encodeName(record(FirstUUID)).constData(), 0600), 0);
        QVERIFY(QDir().mkdir(record(SecondUUID)));
        const QString third = QStringLiteral("33333333-3333-4333-8333-333333333333");
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), record(third)));
        const Fetched result = fetchedAfresh();
        QCOMPARE(result.databases, QVRemoteDatabases());
        QVERIFY(result.error);
    }

    void aSlowCheckIsEndedUnlessItAdvances_data() {
        QTest::addColumn<qint64>("leastProgress");
        QTest::addColumn<bool>("isEnded");
        QTest::newRow("advances") << qint64(1) << false;
        QTest::newRow("advances too slowly") << qint64(1000) << true;
    }
    void aSlowCheckIsEndedUnlessItAdvances() {
        QFETCH(const qint64, leastProgress);
        QFETCH(const bool, isEnded);
        constexpr std::chrono::seconds limit(2);
        MemoryStore::Blobs blobs;
        for (qsizetype i = 0; i < 15; ++i) {
            blobs[recordNumber(i)] = recordNamed(i, QString::number(i));
        }
        const auto operations = std::make_shared<StoreOperations>();
        operations->setTimeLimit({limit, leastProgress});
        const auto wait = [] {
            QThread::msleep(200);
            return MemoryStore::Fault::None;
        };
        const auto store = std::make_shared<MemoryStore>(blobs, wait, operations);
        std::promise<QVSyncStoreCheck> promise;
        auto result = promise.get_future();
        QElapsedTimer time;
        time.start();
        store->checkWithCompletionHandler(
            [&](const QVSyncStoreCheck &found) { promise.set_value(found); });
        QTRY_VERIFY(result.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
        QCOMPARE_GE(time.elapsed(), std::chrono::milliseconds(limit).count());
        const QVSyncStoreCheck found = result.get();
        QCOMPARE(found.error.has_value(), isEnded);
        if (isEnded) {
            QVERIFY2(found.error->localizedDescription.contains(QStringLiteral("takes too long")),
                     qPrintable(found.error->localizedDescription));
        } else {
            QCOMPARE(found.databases, 15);
        }
        QTRY_COMPARE(store.use_count(), 1);
    }

    void aRecordThatIsListedButNotReturnedIsReported() {
        const QString name = QStringLiteral("databases/%1.json").arg(FirstUUID);
        MemoryStore::Blobs blobs{{name, MemoryStore::Withheld}};
        const auto store = std::make_shared<MemoryStore>(blobs);
        QCOMPARE(opened(*store), std::nullopt);
        const Fetched result = fetched(*store);
        QCOMPARE(result.databases, QVRemoteDatabases());
        QVERIFY(result.error);
        QVERIFY(result.error->localizedDescription.contains(name));
        QVERIFY(result.error->localizedDescription.contains(QStringLiteral("does not return it")));
    }

    void onlySoManyDatabasesAreRead() {
        MemoryStore::Blobs blobs;
        for (qsizetype i = 0; i <= BlobStore::MostDatabases; ++i) {
            blobs[recordNumber(i)] = MemoryStore::Withheld;
        }
        int operations = 0;
        const auto store = std::make_shared<MemoryStore>(blobs, [&] {
            ++operations;
            return MemoryStore::Fault::None;
        });
        QCOMPARE(opened(*store), std::nullopt);
        operations = 0;
        const Fetched result = fetched(*store);
        QVERIFY(!result.databases);
        QVERIFY(result.error);
        QVERIFY(result.error->localizedDescription.contains(QStringLiteral("too many databases")));
        QVERIFY(operations < 10);
    }

    void asManyDatabasesAsCanBeShownAreListed() {
        MemoryStore::Blobs blobs;
        for (qsizetype i = 0; i < BlobStore::MostDatabases; ++i) {
            blobs[recordNumber(i)] = recordNamed(i, QStringLiteral("n"));
        }
        const auto store = std::make_shared<MemoryStore>(blobs);
        QCOMPARE(opened(*store), std::nullopt);
        const Fetched result = fetched(*store);
        QCOMPARE(result.error, std::nullopt);
        QVERIFY(result.databases);
        QCOMPARE(result.databases->size(), BlobStore::MostDatabases);
    }

    void theNamesOfDatabasesAreBoundedTogether() {
        MemoryStore::Blobs blobs;
        const QString name(4000, u'x');
        for (qsizetype i = 0; i < BlobStore::MostBytesOfNames / name.size(); ++i) {
            blobs[recordNumber(i)] = recordNamed(i, name);
        }
        const auto listed = [&] {
            const auto store = std::make_shared<MemoryStore>(blobs);
            return opened(*store) ? Fetched() : fetched(*store);
        };
        QCOMPARE(listed().error, std::nullopt);
        blobs[recordNumber(BlobStore::MostDatabases)] =
            recordNamed(BlobStore::MostDatabases, QStringLiteral("n"));
        const Fetched result = listed();
        QVERIFY(!result.databases);
        QVERIFY(result.error);
        QVERIFY(result.error->localizedDescription.contains(QStringLiteral("too many databases")));
    }

    void otherFilesAreNoRecords() {
        QFile file(m_location->URL().path() + QStringLiteral("/databases/readme.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(fetchedAfresh().error, std::nullopt);
    }

    void openingAFolderThatIsNoStoreSaysSo() {
        const QString package = m_location->URL().path();
        QVERIFY(QDir().rmdir(package + QStringLiteral("/transactions")));
        QVERIFY(descriptionOfOpening(m_location->URL().absoluteString())
                    .contains(QStringLiteral("is not a sync store")));
        QVERIFY(descriptionOfOpening(Url::fileURL(m_host->directory()).absoluteString())
                    .contains(QStringLiteral("is not a sync store")));
        QVERIFY(descriptionOfOpening(QStringLiteral("file:///nowhere/at/all.qvSyncStore"))
                    .contains(QStringLiteral("does not exist")));
        QVERIFY(descriptionOfOpening(QStringLiteral("file://elsewhere/a.qvSyncStore"))
                    .contains(QStringLiteral("another computer")));
        QVERIFY(descriptionOfOpening(QStringLiteral("file:relative.qvSyncStore"))
                    .contains(QStringLiteral("does not exist")));
    }

    void openingAnotherKindSaysThatItCannotBeReachedYet() {
        QVERIFY(descriptionOfOpening(QStringLiteral("gopher://old.example"))
                    .contains(QStringLiteral("does not support locations")));
        QVERIFY(descriptionOfOpening(QString()).contains(QStringLiteral("no address")));
    }

    void fetchingNeedsAnOpenStore() {
        const auto store = m_location->createStore();
        QVERIFY(fetched(*store).error);
        QVERIFY(!fetched(*store).databases);
        QCOMPARE(opened(*store), std::nullopt);
        QVERIFY(fetched(*store).databases);
        std::promise<std::optional<Error>> closed;
        store->closeWithCompletionHandler(
            [&](const std::optional<Error> &error) { closed.set_value(error); });
        QCOMPARE(closed.get_future().get(), std::nullopt);
        QVERIFY(!fetched(*store).databases);
    }

    void aStoreLivesUntilItsHandlerWasCalled() {
        auto store = m_location->createStore();
        const std::weak_ptr<QVSyncStore> watched = store;
        std::promise<void> letGo;
        std::promise<bool> wasAlive;
        store->openWithCompletionHandler([&](const std::optional<Error> &) {
            letGo.get_future().wait();
            wasAlive.set_value(!watched.expired());
        });
        store.reset();
        letGo.set_value();
        QVERIFY(wasAlive.get_future().get());
        QTRY_VERIFY(watched.expired());
    }

    void aLocationOfWhichOnlyAStoreIsLeftDiesOnTheMainThread() {
        auto location = m_host->newLocation(Url());
        QThread *thread = nullptr;
        connect(
            location.get(), &QObject::destroyed, location.get(),
            [&thread] { thread = QThread::currentThread(); }, Qt::DirectConnection);
        auto store = location->createStore();
        location.reset();
        store->openWithCompletionHandler([](const std::optional<Error> &) {});
        store.reset();
        QTRY_VERIFY(thread);
        QCOMPARE(thread, qApp->thread());
    }

    void theEngineMayGoWhileCallsToTheMainThreadWait() {
        bool wasCalled = false;
        m_host->engine().plugin().dispatcher()->performSynchronizationsWithSynchronizationStates(
            {}, [&] { wasCalled = true; });
        auto store = m_location->createStore();
        const std::weak_ptr<QVSyncLocation> location = m_location;
        store->openWithCompletionHandler([](const std::optional<Error> &) {});
        store.reset();
        m_location.reset();
        m_host.reset();
        // The location was released on a worker thread, and is destroyed from the main queue.
        QTRY_VERIFY(location.expired());
        QVERIFY(!wasCalled);
    }

    void aCancelledOperationCallsItsHandlerOnceWithThatError() {
        std::promise<void> letGo;
        MemoryStore::Blobs blobs;
        const auto store = std::make_shared<WaitingStore>(blobs, letGo.get_future());
        std::atomic<int> calls = 0;
        std::promise<std::optional<Error>> promise;
        const auto future =
            store->openWithCompletionHandler([&](const std::optional<Error> &error) {
                ++calls;
                promise.set_value(error);
            });
        const auto handle = PZFuture::future();
        handle->cascadeCancellationToFuture(future);
        handle->cancel();
        letGo.set_value();
        const std::optional<Error> error = promise.get_future().get();
        QVERIFY(error);
        QCOMPARE(error->code, static_cast<int>(EngineErrorCode::Cancelled));
        QCOMPARE(calls, 1);
        QVERIFY(!fetched(*store).databases);
        // A thread that owns it last would leave its threads to the main thread's queue.
        QTRY_COMPARE(store.use_count(), 1);
    }

    void aCheckThatIsCancelledAtItsEndFindsThatError() {
        const auto [sound, operations] = checkCancelledBefore(-1);
        QVERIFY(!sound.error);
        const auto [cancelled, sameOperations] = checkCancelledBefore(operations - 1);
        QCOMPARE(sameOperations, operations);
        QVERIFY(cancelled.error);
        QCOMPARE(cancelled.error->code, static_cast<int>(EngineErrorCode::Cancelled));
    }

    void aCheckReportsTheFailureOfAnyOperation() {
        const int operations = checkCancelledBefore(-1).second;
        QVERIFY(operations > 0);
        for (int failing = 0; failing < operations; ++failing) {
            const QVSyncStoreCheck found = check([&](int operation, PZFuture &) {
                                               return operation == failing
                                                          ? MemoryStore::Fault::Unreachable
                                                          : MemoryStore::Fault::None;
                                           }).first;
            QVERIFY2(found.error, qPrintable(QString::number(failing)));
            // The first two list the records and the databases that have transactions.
            QCOMPARE(found.isReadable, failing >= 2);
            QCOMPARE(found.isWritable, failing == 1);
        }
    }

    void cancellingAfterTheEndIsHarmless() {
        const auto store = m_location->createStore();
        std::promise<void> done;
        const auto future = store->openWithCompletionHandler(
            [&](const std::optional<Error> &) { done.set_value(); });
        done.get_future().wait();
        future->cancel();
        QVERIFY(!future->isCancelled());
        QVERIFY(fetched(*store).databases);
    }

    void theLocalStoreHoldsTheDatabasesOfTheProfile() {
        const auto open = m_host->addDatabase(QStringLiteral("Open"));
        const auto closed = m_host->addDatabase(QStringLiteral("Closed"));
        m_host->closeDatabase(closed);
        const auto store = m_host->engine().plugin().localStore();
        QCOMPARE(m_host->engine().plugin().localStore(), store);
        QVERIFY(store->location());
        QCOMPARE(m_host->locations().indexOfObjectInSyncLocations(store->location()), -1);
        QCOMPARE(opened(*store), std::nullopt);
        const Fetched result = fetched(*store);
        QCOMPARE(result.error, std::nullopt);
        QCOMPARE(names(result), QStringList({QStringLiteral("@inbox=Inbox"),
                                             open->UUID() + QStringLiteral("=Open"),
                                             closed->UUID() + QStringLiteral("=Closed")}));
    }

    void theLocalStoreReturnsEachCharacterOfAName() {
        const QString name = QStringLiteral("\uFEFFName\uFFFE\uFFFF");
        const auto database = m_host->addDatabase(name);
        QCOMPARE(database->name(), name);
        const auto store = m_host->engine().plugin().localStore();
        QCOMPARE(opened(*store), std::nullopt);
        QVERIFY(names(fetched(*store)).contains(database->UUID() + u'=' + name));
    }

    void aProfileThatCannotBeReachedIsNotSaidToBeGone() {
        const auto store =
            std::dynamic_pointer_cast<LocalStore>(m_host->engine().plugin().localStore());
        QVERIFY(store);
        Expected<void> opened;
        runWithFailingSystemCall(SYS_newfstatat, EACCES,
                                 [&] { opened = store->open(EngineFuture()); });
        QCOMPARE(code(opened), EngineErrorCode::StoreUnreachable);
        const QString text = description(opened);
        QVERIFY2(text.contains(QStringLiteral("cannot be reached")), qPrintable(text));
        QVERIFY2(text.contains(m_host->directory()), qPrintable(text));
        QCOMPARE(opened.error().details, qt_error_string(EACCES));
    }
};

VELMORA_TEST(EngineStoreTest)
#include "EngineStoreTest.moc"
