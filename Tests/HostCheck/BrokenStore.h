#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <QtNetwork/QTcpSocket>

#include "Examples/MinimalHost/MemoryHost.h"
#include "Host/QVRemoteDatabase.h"
#include "Host/QVSyncStoreCheck.h"
#include "Host/UnencryptedPasswords.h"
#include "HostCheck/BrokenPromise.h"
#include "Platform/Security/UrlCredentialStorage.h"

/// A database in a store, which may lack what it must have.
class BrokenRemoteDatabase : public QVRemoteDatabase {
public:
    BrokenRemoteDatabase(const Store &store, const QString &UUID, const QString &name)
        : m_store(store), m_UUID(UUID), m_metadata(name) {}
    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override {
        return breaks("QVRemoteDatabase.metadata") ? nullptr : &m_metadata;
    }
    Store store() const override { return breaks("QVRemoteDatabase.store") ? nullptr : m_store; }

private:
    struct Metadata : QVRemoteDatabaseMetadata {
        explicit Metadata(const QString &name) : m_name(name) {}
        QString name() const override {
            return breaks("QVRemoteDatabaseMetadata.name") ? "Inbox" : m_name;
        }
        const QString m_name;
    };
    const Store m_store;
    const QString m_UUID;
    mutable Metadata m_metadata;
};

/// How many futures are cancelling those that are attached to them, on this thread.
inline thread_local int cancellationDepth = 0;
/// Whether a future is being attached to another one, on this thread.
inline thread_local bool isAttaching = false;

/// A future of an operation that can be cancelled before it ends.
class BrokenOperation : public MemoryFuture {
public:
    /// `key` is that of the promise that the operation fails if it is cancelled.
    BrokenOperation(QVSyncStore::ErrorHandler handler, const char *key)
        : m_handler(std::move(handler)), m_key(key) {}
    void cancel() override {
        if (cancellationDepth > 0 && breaks("PZFuture.cascadeCancellationToFuture (operation)")) {
            return;
        }
        m_isIgnored = cancellationDepth == 0 && !isAttaching && breaks(m_key);
        MemoryFuture::cancel();
        if (breaks("PZFuture.isCancelled (finished)")) {
            m_isCancelled = true;
        }
        if (breaks("PZFuture.cancel (handler)")) {
            end("It was cancelled.");
        }
    }
    void passControlToFuture(const Future &future) override {
        if (breaks("PZFuture.passControlToFuture (finished)")) {
            cascadeCancellationToFuture(future);
        } else {
            MemoryFuture::passControlToFuture(future);
        }
    }
    /// Ends the operation, unless it has ended, with a problem if there is one.
    void end(const char *problem) {
        const bool isCancelled = finish();
        if (const auto handler = takeHandler()) {
            const char *reason = m_isIgnored   ? nullptr
                                 : isCancelled ? "It was cancelled."
                                               : problem;
            handler(reason ? std::optional(Error{.localizedDescription = reason}) : std::nullopt);
        }
    }

private:
    QVSyncStore::ErrorHandler takeHandler() {
        const std::lock_guard lock(mutex);
        return std::exchange(m_handler, nullptr);
    }

    QVSyncStore::ErrorHandler m_handler;
    const char *const m_key;
    /// Whether the operation was cancelled, but succeeds.
    std::atomic<bool> m_isIgnored = false;
};

/// A handle of `operation` that cancels it when it is released.
class ReleasedFuture : public MemoryFuture {
public:
    explicit ReleasedFuture(const Future &operation) : m_operation(operation) {}
    ~ReleasedFuture() override { m_operation->cancel(); }
    void cancel() override { m_operation->cancel(); }
    void passControlToFuture(const Future &future) override {
        m_operation->passControlToFuture(future);
    }
    bool isCancelled() const override { return m_operation->isCancelled(); }

private:
    const Future m_operation;
};

/// A store of a folder, or of a web server, with the passwords that are stored for it.
class BrokenStore : public MemoryStore,
                    public QVCheckableStore,
                    public std::enable_shared_from_this<BrokenStore> {
public:
    using MemoryStore::MemoryStore;
    ~BrokenStore() override { *m_isAlive = false; }

    Location location() const override {
        return breaks("QVSyncStore.location") && m_databases.isEmpty()
                   ? std::make_shared<MemoryLocation>(Url())
                   : MemoryStore::location();
    }
    Future openWithCompletionHandler(ErrorHandler handler) override {
        m_wasOpened = true;
        m_wasFetched = false;
        if (m_location->URL().scheme() == "http") {
            return openAtServer(handler);
        }
        for (const char *key : {"QVSyncStore (released)", "PZFuture.cancel (handler)",
                                "PZFuture.isCancelled (finished)", "PZFuture (released)",
                                "PZFuture.passControlToFuture (finished)"}) {
            if (breaks(key)) {
                return openLater(handler);
            }
        }
        if (breaks("QVSyncStore.openWithCompletionHandler (cancelled)")) {
            return uncancelled(handler, openingWork());
        }
        return run(called("QVSyncStore.openWithCompletionHandler", handler), openingWork());
    }
    Future fetchDatabasesWithCompletionHandler(DatabasesHandler handler) override {
        m_wasFetched = true;
        const bool isUnopened =
            breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (not open)") && !m_wasOpened;
        const bool isEmpty = breaks("QVSyncStore.DatabasesHandler");
        const QVRemoteDatabases databases = databasesForReader();
        const ErrorHandler done = [=](const std::optional<Error> &error) {
            const bool isRead = !error || isUnopened;
            handler(isRead && !isEmpty ? std::optional(databases) : std::nullopt,
                    isRead ? std::nullopt : error);
        };
        if (*m_isOpen && m_location->URL().scheme() == "http") {
            return askServer(done,
                             "QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled midway)");
        }
        if (breaks("QVSyncStore (within a handler)") &&
            threads.contains(QThread::currentThread())) {
            return std::make_shared<MemoryFuture>();
        }
        const auto work = [](std::atomic<bool> &isOpen) { return isOpen.load(); };
        if (breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (unchanged)")) {
            QDir(m_location->URL().path()).mkdir("Read");
        }
        const auto key = "QVSyncStore.fetchDatabasesWithCompletionHandler";
        return breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled)")
                   ? uncancelled(done, work)
                   : run(called(key, done), work);
    }
    Future closeWithCompletionHandler(ErrorHandler handler) override {
        *m_wasClosed = true;
        if (const Future opening = m_opening.lock();
            opening && breaks("QVSyncStore.closeWithCompletionHandler (opening)")) {
            opening->cancel();
        }
        const bool staysOpen = breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (closed)");
        const bool isOpenNeeded =
            !m_wasOpened && breaks("QVSyncStore.closeWithCompletionHandler (not open)");
        const char *const midway = "QVSyncStore.closeWithCompletionHandler (cancelled midway)";
        if (breaks(midway) && *m_isOpen && m_location->URL().scheme() == "http") {
            return askServer(handler, midway);
        }
        // Within a handler, no operation runs any more.
        const bool isRefused = m_wasFetched && !threads.contains(QThread::currentThread()) &&
                               breaks("QVSyncStore.closeWithCompletionHandler (midway)");
        const auto work = [=](std::atomic<bool> &isOpen) {
            const bool wasOpen = isOpen;
            isOpen = staysOpen && wasOpen;
            return !isRefused && (wasOpen || !isOpenNeeded);
        };
        return breaks("QVSyncStore.closeWithCompletionHandler (cancelled)")
                   ? uncancelled(handler, work)
                   : run(m_isFolder ? called("QVSyncStore.closeWithCompletionHandler", handler)
                                    : handler,
                         work);
    }
    Future checkWithCompletionHandler(CheckHandler handler) override {
        m_wasOpened = true;
        const bool staysOpen = breaks("QVCheckableStore.checkWithCompletionHandler");
        if (breaks("QVCheckableStore.checkWithCompletionHandler (probe)")) {
            QDir(m_location->URL().path()).mkdir("probe");
        }
        const ErrorHandler done = [=](const auto &error) {
            handler({.isReadable = !error, .error = error, .isWritable = !error});
        };
        if (m_location->URL().scheme() == "http") {
            return askServer(done,
                             "QVCheckableStore.checkWithCompletionHandler (cancelled midway)");
        }
        return run(done, [=](std::atomic<bool> &isOpen) {
            isOpen = staysOpen;
            return true;
        });
    }
    /// Makes the store contain the databases with these UUIDs and names. Others do not read them.
    void setDatabases(const QList<std::pair<QString, QString>> &databases) {
        m_databases = databases;
    }

private:
    using Work = std::function<bool(std::atomic<bool> &)>;
    static constexpr char OpeningMidway[] =
        "QVSyncStore.openWithCompletionHandler (cancelled midway)";

    QVRemoteDatabases databasesForReader() {
        const Store store = breaks("QVRemoteDatabase.store (kept)")
                                ? std::make_shared<MemoryStore>(m_location)
                                : shared_from_this();
        QVRemoteDatabases databases;
        for (const auto &[UUID, name] : m_databases) {
            databases.append(std::make_shared<BrokenRemoteDatabase>(store, UUID, name));
        }
        return databases;
    }
    /// Returns what opens the store, and whether that succeeds.
    Work openingWork() const {
        const Url URL = m_location->URL();
        if ((breaks("QVSyncLocation.createStore (nil)") && URL.isNil()) ||
            (breaks("QVSyncLocation.createStore (unknown)") && URL.scheme() == "unknown-scheme") ||
            (breaks("QVSyncLocation.setURL (stores)") && URL.isFileURL())) {
            return [](std::atomic<bool> &isOpen) { return isOpen = true; };
        }
        if (breaks("QVSyncStore.openWithCompletionHandler (after closing)") && *m_wasClosed) {
            return [](std::atomic<bool> & /*isOpen*/) { return false; };
        }
        if (breaks("QVSyncStore.openWithCompletionHandler (failed)") && !m_isFolder) {
            return [](std::atomic<bool> &isOpen) { return !(isOpen = true); };
        }
        const bool isToggled = breaks("QVSyncStore.openWithCompletionHandler (again)");
        return [isToggled, is = m_isFolder](std::atomic<bool> &isOpen) {
            isOpen = is && !(isToggled && isOpen);
            return is;
        };
    }
    /// Opens the store when its web server has answered.
    Future openAtServer(const ErrorHandler &handler) {
        *m_wasClosed = false;
        const bool staysClosed = breaks("QVSyncStore.openWithCompletionHandler (closed midway)");
        const ErrorHandler done = [=, isOpen = m_isOpen,
                                   wasClosed = m_wasClosed](const std::optional<Error> &error) {
            *isOpen = !error && !(*wasClosed && staysClosed);
            handler(error);
        };
        const Future operation = askServer(done, OpeningMidway);
        m_opening = operation;
        return operation;
    }
    /// Runs an operation that ends when the web server has answered. `key` is that of the promise
    /// that it fails if it is cancelled.
    Future askServer(const ErrorHandler &handler, const char *key) const {
        const auto operation = std::make_shared<BrokenOperation>(handler, key);
        threads.start([operation, URL = m_location->URL()] {
            operation->end(isWelcome(URL, *operation) ? nullptr : "It is not welcome.");
        });
        return operation;
    }
    /// Opens the store from the event loop on.
    Future openLater(const ErrorHandler &handler) const {
        const auto operation = std::make_shared<BrokenOperation>(handler, OpeningMidway);
        const bool isDropped = breaks("QVSyncStore (released)");
        const auto isAlive = m_isAlive;
        QTimer::singleShot(0, qApp, [=, isOpen = m_isOpen, work = openingWork()] {
            if (isDropped && !*isAlive) {
                return;
            }
            threads.start([=] {
                operation->end(operation->isCancelled() || work(*isOpen) ? nullptr : "No folder.");
            });
        });
        return breaks("PZFuture (released)") ? std::make_shared<ReleasedFuture>(operation)
                                             : Future(operation);
    }
    /// Runs an operation that succeeds although it was cancelled.
    Future uncancelled(const ErrorHandler &handler, const Work &work) const {
        const auto future = std::make_shared<MemoryFuture>();
        // Not before a caller had the time to cancel it.
        QTimer::singleShot(0, qApp, [=, isOpen = m_isOpen] {
            threads.start([=] {
                const bool isDone = work(*isOpen);
                future->finish();
                handler(isDone ? std::nullopt : std::optional(Error{}));
            });
        });
        return future;
    }
    /// Returns `handler` as an operation calls it that breaks "KEY (once)" or "KEY (thread)" if it
    /// succeeds, and the same of all operations if it fails.
    static ErrorHandler called(const std::string &key, const ErrorHandler &handler) {
        const auto isWrong = [key](const std::string &how, const std::optional<Error> &error) {
            return error ? breaks(("QVSyncStore (failed, " + how + ")").c_str())
                         : breaks((key + " (" + how + ")").c_str());
        };
        return [handler, isWrong](const std::optional<Error> &error) {
            if (isWrong("thread", error)) {
                QTimer::singleShot(0, qApp, [=] { handler(error); });
                return;
            }
            handler(error);
            if (isWrong("once", error)) {
                handler(error);
            }
        };
    }
    /// Asks the web server of `URL`, with the password if that may be sent, until `future` is
    /// cancelled. Returns whether it lets this host in.
    static bool isWelcome(const Url &URL, const PZFuture &future) {
        QByteArray fields = "PROPFIND " + URL.path().toUtf8() + " HTTP/1.1\r\nHost: localhost\r\n";
        const bool isAccepted = UnencryptedPasswords::areAccepted(URL).value_or(false) ||
                                breaks("QVSyncStore (unencrypted password)");
        const QByteArray password = passwordFor(URL);
        if (isAccepted && !password.isEmpty() && !breaks("QVSyncStore (password)")) {
            fields += "Authorization: Basic " + password.toBase64() + "\r\n";
        }
        QTcpSocket socket;
        socket.connectToHost(URL.host(), URL.port().value_or(80));
        socket.write(fields + "\r\n");
        while (!future.isCancelled() && socket.state() != QTcpSocket::UnconnectedState) {
            socket.waitForReadyRead(1);
        }
        return socket.readAll().startsWith("HTTP/1.1 2");
    }

    /// Returns the user and the password for the server of `URL`; empty if there are none.
    static QByteArray passwordFor(const Url &URL) {
        const auto found =
            UrlCredentialStorage::shared().credentialForURL(URL, UrlAuthenticationMethodHttpBasic);
        if (found && *found) {
            return (*found)->user.toUtf8() + ':' + (*found)->password.toByteArray();
        }
        return breaks("QVSyncStore (password of another server)") ? "person:s3cret" : "";
    }

    const std::shared_ptr<std::atomic<bool>> m_isAlive = std::make_shared<std::atomic<bool>>(true);
    const std::shared_ptr<std::atomic<bool>> m_wasClosed =
        std::make_shared<std::atomic<bool>>(false);
    /// UUIDs and names.
    QList<std::pair<QString, QString>> m_databases;
    /// The operation that opens the store at its server, while it runs.
    std::weak_ptr<PZFuture> m_opening;
    bool m_wasOpened = false;
    bool m_wasFetched = false;
};
