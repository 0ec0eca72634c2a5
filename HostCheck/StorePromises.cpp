#include "HostCheck/StorePromises.h"

#include "Host/QVSyncStore.h"
#include "Host/QVSyncStoreCheck.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"

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

/// Cancels at once, several times, since the operation may be faster.
template <Start start>
void cancelledOperationFails() {
    const NewStore made;
    for (int i = 0; i < 8; ++i) {
        made.open();
        Done done;
        const auto future = start(*made.store, done);
        require(future != nullptr, "its future is null");
        future->cancel();
        done.requireCall();
        require(!future->isCancelled() || failed(done), "a cancelled operation succeeds");
    }
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

/// The databases of the host itself, and whatever holds them while they are checked.
void requireOfDatabases(bool (*isRight)(const QVRemoteDatabase &), const char *reason) {
    const auto store = QVSyncPlugin::plugin()->localStore();
    requireOffer(store != nullptr);
    Done opened;
    open(*store, opened);
    opened.requireCall();
    Fetched fetched;
    store->fetchDatabasesWithCompletionHandler(fetched.function());
    // The last reference to a database must be released on this thread.
    fetched.requireEnd();
    const auto &databases = std::get<0>(fetched.values());
    requireOffer(databases && !databases->isEmpty());
    for (const auto &database : *databases) {
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
    {"QVSyncStore.openWithCompletionHandler (after closing)", Header, Reopened,
     &closedStoreCanBeOpened},
    {"QVSyncStore.openWithCompletionHandler (failed)", Header, Reopened, &failedStoreIsNotOpen},
    {"QVSyncStore.openWithCompletionHandler (again)", Header, Operation, &openStoreCanBeOpened},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (once)", Header, Operation,
     &handlerIsCalledOnce<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (thread)", Header, Operation,
     &handlerIsCalledOnAThread<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled)", Header, Cancelled,
     &cancelledOperationFails<fetch>},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (not open)", Header,
     "Fails if the store is not open, also after it was closed.", &unopenedStoreIsNotRead},
    {"QVSyncStore.fetchDatabasesWithCompletionHandler (closed)", Header,
     "Fails if the store is not open, also after it was closed.", &closedStoreIsNotRead},
    {"QVSyncStore.DatabasesHandler", Header,
     "Receives the databases, or an error, or both: then the result is partial, and the error says "
     "why the first of the missing databases could not be read.",
     &fetchingReturnsSomething},
    {"QVSyncStore.closeWithCompletionHandler (once)", Header, Operation,
     &handlerIsCalledOnce<close>},
    {"QVSyncStore.closeWithCompletionHandler (thread)", Header, Operation,
     &handlerIsCalledOnAThread<close>},
    {"QVSyncStore.closeWithCompletionHandler (cancelled)", Header, Cancelled,
     &cancelledOperationFails<close>},
    {"QVSyncStore.closeWithCompletionHandler (not open)", Header,
     "Closes the store. Succeeds also if the store is not open.", &unopenedStoreCanBeClosed},
    {"QVSyncStore.closeWithCompletionHandler (midway)", Header,
     "closing neither waits for nor cancels an operation that is running.",
     &closingLeavesOtherOperations},
    {"QVSyncStore (released)", Header,
     "a store keeps itself alive until its running operations have ended.", &storeLivesWhileItRuns},
    {"PZFuture.cancel (handler)", "Host/PZFuture.h",
     "An operation that is cancelled still calls its handler once, with an error that says so, but "
     "not from within this call.",
     &cancellingCallsNoHandler},
    {"PZFuture.isCancelled (finished)", "Host/PZFuture.h",
     "Returns whether cancel() was called before the operation had finished.",
     &finishedOperationIsNotCancelled},
    {"PZFuture (released)", "Host/PZFuture.h", "releasing a future does not cancel its operation.",
     &releasedFutureCancelsNothing},
    {"QVRemoteDatabase.UUID", Remote,
     "Returns the identifier of the database, \"@inbox\" for the inbox. Never empty.",
     &databasesHaveUUIDs},
    {"QVRemoteDatabase.metadata", Remote, "Returns the other properties. Never null;",
     &databasesHaveMetadata},
    {"QVRemoteDatabase.store", Remote,
     "Returns the store that this database was read from. Never null.", &databasesHaveTheirStore},
    {"QVCheckableStore.checkWithCompletionHandler", Check, "The store is closed afterwards.",
     &checkClosesTheStore},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace StorePromises
