#include "HostCheck/StorePromises.h"

#include <atomic>
#include <mutex>

#include "Host/InboxUUID.h"
#include "Host/QVApplication.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncStore.h"
#include "Host/QVSyncStoreCheck.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"
#include "HostCheck/StoreServer.h"

using namespace Checking;

namespace StorePromises {
namespace {

constexpr char Header[] = "Host/QVSyncStore.h";
constexpr char Remote[] = "Host/QVRemoteDatabase.h";
constexpr char Check[] = "Host/QVSyncStoreCheck.h";

using Done = Handler<std::optional<Error>>;
using Fetched = Handler<std::optional<QVRemoteDatabases>, std::optional<Error>>;

bool failed(const Done &done) {
    return std::get<0>(done.values()).has_value();
}

bool failed(const Fetched &fetched) {
    return std::get<1>(fetched.values()).has_value();
}

/// A new store of a folder.
struct NewStore {
    Folder folder;
    const std::shared_ptr<QVSyncStore> store = folder.location->createStore();

    void open() const {
        Done opened;
        const auto future = store->openWithCompletionHandler(opened.function());
        opened.requireCall();
        requireOffer(!failed(opened));
    }
    void close() const {
        Done closed;
        store->closeWithCompletionHandler(closed.function());
        closed.requireCall();
    }
    bool canFetch() const {
        Fetched fetched;
        store->fetchDatabasesWithCompletionHandler(fetched.function());
        fetched.requireCall();
        return !failed(fetched);
    }
};

void storeHasItsLocation() {
    const NewStore made;
    require(made.store->location() == made.folder.location, "it has another location");
}

using Start = std::shared_ptr<PZFuture> (*)(QVSyncStore &, Done &);

std::shared_ptr<PZFuture> open(QVSyncStore &store, Done &done) {
    return store.openWithCompletionHandler(done.function());
}

std::shared_ptr<PZFuture> close(QVSyncStore &store, Done &done) {
    return store.closeWithCompletionHandler(done.function());
}

std::shared_ptr<PZFuture> fetch(QVSyncStore &store, Done &done) {
    return store.fetchDatabasesWithCompletionHandler(
        [handler = done.function()](const auto & /*databases*/, const auto &error) {
            handler(error);
        });
}

template <Start start>
void handlerIsCalledOnce() {
    const NewStore made;
    made.open();
    Done done;
    const auto future = start(*made.store, done);
    require(future != nullptr, "its future is null");
    done.requireOneCall();
}

template <Start start>
void handlerIsCalledOnAThread() {
    const NewStore made;
    made.open();
    Done done;
    start(*made.store, done);
    done.requireCall();
    require(!done.wasCalledOnMainThread(), "the handler is called on the main thread");
}

/// Starts operations that fail: a store without an address cannot be read or opened. Each has to
/// keep `promise`.
void startFailures(void (*promise)(Done &)) {
    const auto store = newLocation()->createStore();
    require(store != nullptr, "no store was made");
    for (const Start start : {&fetch, &open}) {
        Done done;
        const auto future = start(*store, done);
        require(future != nullptr, "its future is null");
        promise(done);
        requireOffer(failed(done));
    }
}

void failureIsReportedOnce() {
    startFailures([](Done &done) { done.requireOneCall(); });
}

void failureIsReportedOnAThread() {
    startFailures([](Done &done) {
        done.requireCall();
        require(!done.wasCalledOnMainThread(), "the handler is called on the main thread");
    });
}

/// Reads a store within the handler that opens it, and closes it within that which reads it.
void handlersStartOperations() {
    const NewStore made;
    Done opened;
    Done fetched;
    Done closed;
    // Whether a handler is called once is another promise.
    const auto wasFetched = std::make_shared<std::atomic<bool>>(false);
    const auto wasClosed = std::make_shared<std::atomic<bool>>(false);
    auto didFetch = [store = made.store, wasClosed, handler = fetched.function(),
                     close = closed.function()](const auto & /*databases*/, const auto &error) {
        if (!wasClosed->exchange(true)) {
            store->closeWithCompletionHandler(close);
        }
        handler(error);
    };
    made.store->openWithCompletionHandler([store = made.store, wasFetched,
                                           handler = opened.function(),
                                           didFetch = std::move(didFetch)](const auto &error) {
        if (!wasFetched->exchange(true)) {
            store->fetchDatabasesWithCompletionHandler(didFetch);
        }
        handler(error);
    });
    opened.requireCall();
    requireOffer(!failed(opened));
    fetched.requireCall();
    require(!failed(fetched), "a store cannot be read within the handler that opens it");
    closed.requireCall();
    require(!failed(closed), "a store cannot be closed within the handler that reads it");
}

/// Cancels at once, several times, since the operation may be faster.
template <Start start>
void cancelledOperationFails() {
    const NewStore made;
    for (int i = 0; i < 4; ++i) {
        made.open();
        Done done;
        const auto future = start(*made.store, done);
        require(future != nullptr, "its future is null");
        future->cancel();
        done.requireCall();
        require(!future->isCancelled() || failed(done), "a cancelled operation succeeds");
    }
}

/// A store that is being opened, which does not end before the server responds.
class PendingStore {
public:
    PendingStore() {
        require(m_store != nullptr, "no store was made");
        m_future = open(*m_store, m_opened);
        require(m_future != nullptr, "its future is null");
        wait([this] { return m_server.isAsked() || m_opened.wasCalled(); });
        requireOffer(m_server.isAsked());
    }
    ~PendingStore() { m_future->cancel(); }
    PendingStore(const PendingStore &) = delete;
    PendingStore &operator=(const PendingStore &) = delete;

    QVSyncStore &store() const { return *m_store; }
    const std::shared_ptr<PZFuture> &future() const { return m_future; }
    bool isOpening() const { return !m_opened.wasCalled() && !m_future->isCancelled(); }
    void requireCancellation() {
        require(m_future->isCancelled(), "the future of the operation is not cancelled");
        m_opened.requireOneCall();
        require(failed(m_opened), "a cancelled operation succeeds");
    }
    /// Lets the server respond, and waits for the end. Throws NotOffered if the store is not
    /// opened.
    void finish() {
        m_server.respond();
        m_opened.requireOneCall();
        requireOffer(!failed(m_opened));
    }

private:
    StoreServer m_server;
    const std::shared_ptr<QVSyncLocation> m_location = newLocation(m_server.URL());
    const std::shared_ptr<QVSyncStore> m_store = m_location->createStore();
    Done m_opened;
    std::shared_ptr<PZFuture> m_future;
};

void runningOperationIsCancelled() {
    PendingStore pending;
    require(pending.isOpening(), "opening ends although the server does not respond");
    pending.future()->cancel();
    pending.requireCancellation();
}

/// Starts an operation with an open store whose server does not respond any more, and cancels it.
template <Start start>
void cancelMidway() {
    StoreServer server;
    const auto store = newLocation(server.URL())->createStore();
    require(store != nullptr, "no store was made");
    server.respond();
    Done opened;
    open(*store, opened);
    opened.requireCall();
    requireOffer(!failed(opened));
    server.hold();
    Done done;
    const auto future = start(*store, done);
    require(future != nullptr, "its future is null");
    // An operation may need no server.
    wait([&] { return server.isAsked() || done.wasCalled(); });
    future->cancel();
    require(!server.isAsked() || future->isCancelled(),
            "the future of the operation is not cancelled");
    done.requireOneCall();
    require(!future->isCancelled() || failed(done), "a cancelled operation succeeds");
}

void attachedOperationIsCancelled() {
    PendingStore pending;
    const auto future = newFuture();
    future->cascadeCancellationToFuture(pending.future());
    require(pending.isOpening(), "attaching the future of an operation ends it");
    future->cancel();
    pending.requireCancellation();
}

void cancelledFutureCancelsOperation() {
    PendingStore pending;
    const auto future = newFuture();
    future->cancel();
    future->cascadeCancellationToFuture(pending.future());
    pending.requireCancellation();
}

void closingLeavesOpening() {
    PendingStore pending;
    Done closed;
    close(pending.store(), closed);
    closed.requireCall();
    require(!failed(closed), "closing fails while the store is being opened");
    require(pending.isOpening(), "closing cancels an operation that is running");
}

void closedStoreIsOpenAgain() {
    PendingStore pending;
    Done closed;
    close(pending.store(), closed);
    closed.requireCall();
    pending.finish();
    Done fetched;
    fetch(pending.store(), fetched);
    fetched.requireCall();
    require(!failed(fetched), "a store that was closed while it was opened is not open afterwards");
}

/// Futures that a handler uses.
struct UsedInHandler {
    const std::shared_ptr<PZFuture> cancelled = newFuture();
    const std::shared_ptr<PZFuture> attached = newFuture();
    const std::shared_ptr<PZFuture> next = newFuture();
    std::mutex mutex;
    /// That of the operation, as soon as it is known.
    std::shared_ptr<PZFuture> own;

    void use() {
        std::unique_lock lock(mutex);
        const auto ofOperation = own;
        lock.unlock();
        if (ofOperation) {
            ofOperation->isCancelled();
            ofOperation->cancel();
        }
        cancelled->cascadeCancellationToFuture(attached);
        cancelled->passControlToFuture(next);
        cancelled->cancel();
    }
};

void handlersUseFutures() {
    const NewStore made;
    const auto futures = std::make_shared<UsedInHandler>();
    Done done;
    const auto future = made.store->openWithCompletionHandler(
        [futures, handler = done.function()](const auto &error) {
            futures->use();
            handler(error);
        });
    {
        const std::lock_guard lock(futures->mutex);
        futures->own = future;
    }
    done.requireCall();
    require(futures->cancelled->isCancelled(), "a future is not cancelled from within a handler");
    require(futures->attached->isCancelled(), "a future is not attached from within a handler");
}

void finishedFutureIsPendingAgain() {
    const NewStore made;
    Done done;
    const auto future = open(*made.store, done);
    require(future != nullptr, "its future is null");
    done.requireEnd();
    const auto next = newFuture();
    future->passControlToFuture(next);
    future->cancel();
    require(future->isCancelled(), "a future that was handed over cannot be cancelled");
    require(next->isCancelled(), "the future that has control is not cancelled");
}

void cancellingCallsNoHandler() {
    const NewStore made;
    Done done;
    const auto future = open(*made.store, done);
    require(future != nullptr, "its future is null");
    done.didReturn();
    done.willCall();
    future->cancel();
    done.didReturn();
    done.requireCall();
    require(!done.wasCalledWithinCall(), "cancelling calls the handler");
}

void finishedOperationIsNotCancelled() {
    const NewStore made;
    Done done;
    const auto future = open(*made.store, done);
    require(future != nullptr, "its future is null");
    done.requireCall();
    future->cancel();
    require(!future->isCancelled(), "a future is cancelled after its operation had finished");
}

void releasedFutureCancelsNothing() {
    NewStore().open();
    const NewStore made;
    Done done;
    const std::weak_ptr<PZFuture> released = open(*made.store, done);
    done.requireCall();
    require(!failed(done), "an operation fails whose future was released");
}

void unopenedStoreIsNotRead() {
    const NewStore made;
    require(!made.canFetch(), "a store is read that was not opened");
}

void closedStoreIsNotRead() {
    const NewStore made;
    made.open();
    made.close();
    require(!made.canFetch(), "a store is read that was closed");
}

void unopenedStoreCanBeClosed() {
    const NewStore made;
    Done closed;
    close(*made.store, closed);
    closed.requireCall();
    require(!failed(closed), "a store that is not open cannot be closed");
}

void closedStoreCanBeOpened() {
    const NewStore made;
    made.open();
    made.close();
    Done opened;
    const auto future = open(*made.store, opened);
    opened.requireCall();
    require(!failed(opened), "a store that was closed cannot be opened");
    require(made.canFetch(), "a store cannot be read that was opened again");
}

void failedStoreIsNotOpen() {
    const auto store = newLocation()->createStore();
    for (int i = 0; i < 2; ++i) {
        Done opened;
        open(*store, opened);
        opened.requireCall();
        Done fetched;
        fetch(*store, fetched);
        fetched.requireCall();
        require(!failed(opened) || failed(fetched), "a store is read that failed to open");
    }
}

void openStoreCanBeOpened() {
    const NewStore made;
    made.open();
    Done again;
    open(*made.store, again);
    again.requireCall();
    require(made.canFetch() || failed(again), "a store that was opened twice is not open");
}

void storeLivesWhileItRuns() {
    std::shared_ptr<QVSyncStore> store;
    Folder folder;
    store = folder.location->createStore();
    Done done;
    open(*store, done);
    store = nullptr;
    done.requireCall();
}

void closingLeavesOtherOperations() {
    const NewStore made;
    made.open();
    Done fetched;
    Done closed;
    fetch(*made.store, fetched);
    close(*made.store, closed);
    fetched.requireCall();
    closed.requireCall();
    require(!failed(closed), "closing fails while another operation runs");
}

/// Opens `store`. Returns the databases that it lists; empty if it cannot be read.
QVRemoteDatabases databasesIn(QVSyncStore &store) {
    Done opened;
    open(store, opened);
    opened.requireCall();
    Fetched fetched;
    store.fetchDatabasesWithCompletionHandler(fetched.function());
    // Afterwards the handler has no reference to the databases any more.
    fetched.requireEnd();
    return std::get<0>(fetched.values()).value_or(QVRemoteDatabases());
}

/// Requires that each database of the host itself is right.
void requireOfDatabases(bool (*isRight)(const QVRemoteDatabase &), const char *reason) {
    const auto store = QVSyncPlugin::plugin()->localStore();
    requireOffer(store != nullptr);
    const QVRemoteDatabases databases = databasesIn(*store);
    requireOffer(!databases.isEmpty());
    for (const auto &database : databases) {
        require(database && isRight(*database), reason);
    }
}

void databasesHaveUUIDs() {
    requireOfDatabases([](const QVRemoteDatabase &each) { return !each.UUID().isEmpty(); },
                       "a database has an empty UUID");
}

void databasesHaveMetadata() {
    requireOfDatabases([](const QVRemoteDatabase &each) { return each.metadata() != nullptr; },
                       "a database has no metadata");
}

void databasesHaveTheirStore() {
    requireOfDatabases([](const QVRemoteDatabase &each) { return each.store() != nullptr; },
                       "a database has no store");
}

void databaseKeepsItsStore() {
    const InboxInFolder added;
    Handler<> ended;
    dispatcher().performSynchronizationsWithSynchronizationStates({added.state}, ended.function());
    ended.requireEnd();
    auto store = added.location->createStore();
    QVRemoteDatabases databases = databasesIn(*store);
    if (databases.isEmpty()) {
        store = QVSyncPlugin::plugin()->localStore();
        requireOffer(store != nullptr);
        databases = databasesIn(*store);
    }
    requireOffer(!databases.isEmpty());
    const std::weak_ptr<QVSyncStore> kept(store);
    store = nullptr;
    require(!kept.expired(), "the store is destroyed before its database");
}

void localStoreHasEveryDatabase() {
    const auto store = QVSyncPlugin::plugin()->localStore();
    requireOffer(store != nullptr);
    QStringList UUIDs;
    for (const auto &database : databasesIn(*store)) {
        UUIDs.append(database ? database->UUID() : QString());
    }
    requireOffer(!UUIDs.isEmpty());
    const auto inbox = NSApp()->inbox();
    for (const auto &database : openDatabases()) {
        require(UUIDs.contains(UUIDInStores(*database, inbox.get())),
                "it does not contain an open database");
    }
}

void localDatabasesHaveTheirNames() {
    const auto store = QVSyncPlugin::plugin()->localStore();
    requireOffer(store != nullptr);
    const QVRemoteDatabases stored = databasesIn(*store);
    requireOffer(!stored.isEmpty());
    const auto inbox = NSApp()->inbox();
    for (const auto &database : openDatabases()) {
        const QString UUID = UUIDInStores(*database, inbox.get());
        for (const auto &each : stored) {
            const auto *metadata = each && each->UUID() == UUID ? each->metadata() : nullptr;
            require(!metadata || metadata->name() == database->name(),
                    "an open database has another name in the store of this computer");
        }
    }
}

void fetchingReturnsSomething() {
    const NewStore made;
    for (const bool isOpen : {false, true}) {
        if (isOpen) {
            made.open();
        }
        Fetched fetched;
        made.store->fetchDatabasesWithCompletionHandler(fetched.function());
        fetched.requireCall();
        const auto &[databases, error] = fetched.values();
        require(databases || error, "the handler receives neither databases nor an error");
        require(!databases || !databases->contains(nullptr), "an entry is null");
    }
}

void fetchingChangesNothing() {
    const NewStore made;
    made.open();
    const QStringList before = contentsOf(made.folder);
    require(made.canFetch(), "an open store cannot be read");
    require(contentsOf(made.folder) == before, "reading the list changes what the store contains");
}

void checkClosesTheStore() {
    const NewStore made;
    const auto checkable = QVCheckableStore::of(made.store);
    requireOffer(checkable != nullptr);
    Handler<QVSyncStoreCheck> checked;
    const auto future = checkable->checkWithCompletionHandler(checked.function());
    require(future != nullptr, "its future is null");
    checked.requireOneCall();
    require(!checked.wasCalledOnMainThread(), "the handler is called on the main thread");
    require(!made.canFetch(), "the store is open after the check");
}

void checkLeavesNoProbe() {
    const NewStore made;
    const auto checkable = QVCheckableStore::of(made.store);
    requireOffer(checkable != nullptr);
    const QStringList before = contentsOf(made.folder);
    Handler<QVSyncStoreCheck> checked;
    checkable->checkWithCompletionHandler(checked.function());
    checked.requireOneCall();
    const auto &[found] = checked.values();
    require(found.isReadable && found.isWritable && !found.error,
            "a folder counts as one that cannot be read and written");
    require(contentsOf(made.folder) == before, "the check leaves something in the store");
}

void runningCheckIsCancelled() {
    const StoreServer server;
    const auto store = newLocation(server.URL())->createStore();
    const auto checkable = QVCheckableStore::of(store);
    requireOffer(checkable != nullptr);
    Handler<QVSyncStoreCheck> checked;
    const auto future = checkable->checkWithCompletionHandler(checked.function());
    require(future != nullptr, "its future is null");
    wait([&] { return server.isAsked() || checked.wasCalled(); });
    requireOffer(server.isAsked());
    future->cancel();
    require(future->isCancelled(), "the future of the check is not cancelled");
    checked.requireOneCall();
    require(std::get<0>(checked.values()).error.has_value(), "a cancelled check finds no error");
}

constexpr char Operation[] =
    "Every operation returns its future at once and runs on a worker thread. Its handler, which "
    "must not be empty, is called there exactly once, possibly before the operation has returned "
    "its future.";
constexpr char Cancelled[] =
    "If the future is cancelled, the handler receives an error that says so.";
constexpr char Reopened[] =
    "A store that failed to open is not open and may be opened again, as may one that was closed.";

constexpr HostPromise Promises[] = {
    {"QVSyncStore.location", Header, "Returns the location that created this store. Never null.",
     &storeHasItsLocation},
    {"QVSyncStore.openWithCompletionHandler (once)", Header, Operation, &handlerIsCalledOnce<open>},
    {"QVSyncStore.openWithCompletionHandler (thread)", Header, Operation,
     &handlerIsCalledOnAThread<open>},
    {"QVSyncStore.openWithCompletionHandler (cancelled)", Header, Cancelled,
     &cancelledOperationFails<open>},
    {"QVSyncStore.openWithCompletionHandler (cancelled midway)", Header, Cancelled,
     &runningOperationIsCancelled},
    {"QVSyncStore.openWithCompletionHandler (closed midway)", Header,
     "If the store is closed while this runs, it is open again if this succeeds.",
     &closedStoreIsOpenAgain},
    {"QVSyncStore.openWithCompletionHandler (after closing)", Header, Reopened,
     &closedStoreCanBeOpened},
    {"QVSyncStore.openWithCompletionHandler (failed)", Header, Reopened, &failedStoreIsNotOpen},
    {"QVSyncStore.openWithCompletionHandler (again)", Header,
     "A store that is open may be opened again: it stays open unless this fails.",
     &openStoreCanBeOpened},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (once)", Header, Operation,
     &handlerIsCalledOnce<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (thread)", Header, Operation,
     &handlerIsCalledOnAThread<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled)", Header, Cancelled,
     &cancelledOperationFails<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled midway)", Header, Cancelled,
     &cancelMidway<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (not open)", Header,
     "Fails if the store is not open, also after it was closed.", &unopenedStoreIsNotRead},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (closed)", Header,
     "Fails if the store is not open, also after it was closed.", &closedStoreIsNotRead},
    {"QVSyncStore.DatabasesHandler", Header,
     "Receives the databases, or an error, or both: then the result is partial, and the error says "
     "why the first of the missing databases could not be read.",
     &fetchingReturnsSomething},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (unchanged)", Header,
     "Changes nothing in the store.", &fetchingChangesNothing},
    {"QVSyncStore.closeWithCompletionHandler (once)", Header, Operation,
     &handlerIsCalledOnce<close>},
    {"QVSyncStore.closeWithCompletionHandler (thread)", Header, Operation,
     &handlerIsCalledOnAThread<close>},
    {"QVSyncStore.closeWithCompletionHandler (cancelled)", Header, Cancelled,
     &cancelledOperationFails<close>},
    {"QVSyncStore.closeWithCompletionHandler (cancelled midway)", Header, Cancelled,
     &cancelMidway<close>},
    {"QVSyncStore.closeWithCompletionHandler (not open)", Header,
     "Closes the store. Succeeds also if the store is not open.", &unopenedStoreCanBeClosed},
    {"QVSyncStore.closeWithCompletionHandler (midway)", Header,
     "closing neither waits for nor cancels an operation that is running.",
     &closingLeavesOtherOperations},
    {"QVSyncStore.closeWithCompletionHandler (opening)", Header,
     "closing neither waits for nor cancels an operation that is running.", &closingLeavesOpening},
    {"QVSyncStore (failed, once)", Header, Operation, &failureIsReportedOnce},
    {"QVSyncStore (failed, thread)", Header, Operation, &failureIsReportedOnAThread},
    {"QVSyncStore (within a handler)", Header, "Handlers may start other operations",
     &handlersStartOperations},
    {"QVSyncStore (released)", Header,
     "a store keeps itself alive until its running operations have ended.", &storeLivesWhileItRuns},
    {"PZFuture.cancel (handler)", "Host/PZFuture.h",
     "An operation that is cancelled still calls its handler once, with an error that says so, but "
     "not from within this call.",
     &cancellingCallsNoHandler},
    {"PZFuture.isCancelled (finished)", "Host/PZFuture.h",
     "Returns whether cancel() was called before the operation had finished.",
     &finishedOperationIsNotCancelled},
    {"PZFuture.cascadeCancellationToFuture (operation)", "Host/PZFuture.h",
     "Attaches `future`: cancelling this future also cancels `future`, but not the reverse.",
     &attachedOperationIsCancelled},
    {"PZFuture.cascadeCancellationToFuture (cancelled before)", "Host/PZFuture.h",
     "If this future is cancelled already, `future` is cancelled within this call.",
     &cancelledFutureCancelsOperation},
    {"PZFuture.passControlToFuture (finished)", "Host/PZFuture.h",
     "this future is pending again if it had finished, and cancelling it cancels that operation.",
     &finishedFutureIsPendingAgain},
    {"PZFuture (released)", "Host/PZFuture.h", "releasing a future does not cancel its operation.",
     &releasedFutureCancelsNothing},
    {"PZFuture (within a handler)", "Host/PZFuture.h",
     "Every function is thread-safe, returns at once, and may be called from within a handler.",
     &handlersUseFutures},
    {"QVRemoteDatabase.UUID", Remote,
     "Returns the identifier of the database, \"@inbox\" for the inbox. Never empty.",
     &databasesHaveUUIDs},
    {"QVRemoteDatabase.metadata", Remote, "Returns the other properties. Never null;",
     &databasesHaveMetadata},
    {"QVRemoteDatabaseMetadata.name", Remote,
     "Returns the name of the database as the store has it.", &localDatabasesHaveTheirNames},
    {"QVRemoteDatabase.store", Remote,
     "Returns the store that this database was read from. Never null.", &databasesHaveTheirStore},
    {"QVRemoteDatabase.store (kept)", Remote, "The database keeps the store alive.",
     &databaseKeepsItsStore},
    {"QVSyncPlugin.localStore (databases)", "Host/QVSyncPlugin.h",
     "A host may list no database in it; one that does lists every open one.",
     &localStoreHasEveryDatabase},
    {"QVCheckableStore.checkWithCompletionHandler", Check, "The store is closed afterwards.",
     &checkClosesTheStore},
    {"QVCheckableStore.checkWithCompletionHandler (probe)", Check,
     "Opens the store, reads which databases it contains, and writes, reads and removes a small "
     "probe, which is no record and which no reader notices.",
     &checkLeavesNoProbe},
    {"QVCheckableStore.checkWithCompletionHandler (cancelled midway)", Check,
     "Future and handler are those of the operations of QVSyncStore.", &runningCheckIsCancelled},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace StorePromises
