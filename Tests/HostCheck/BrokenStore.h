#pragma once

#include <QtCore/QCoreApplication>
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
    explicit BrokenRemoteDatabase(const Store &store) : m_store(store) {}
    QString UUID() const override { return breaks("QVRemoteDatabase.UUID") ? "" : "1"; }
    QVRemoteDatabaseMetadata *metadata() const override {
        return breaks("QVRemoteDatabase.metadata") ? nullptr : &m_metadata;
    }
    Store store() const override { return breaks("QVRemoteDatabase.store") ? nullptr : m_store; }

private:
    struct Metadata : QVRemoteDatabaseMetadata {
        QString name() const override { return "Inbox"; }
    };
    const Store m_store;
    mutable Metadata m_metadata;
};

/// A future of an operation that begins later, so that it can be cancelled before.
class BrokenOperation : public MemoryFuture {
public:
    explicit BrokenOperation(QVSyncStore::ErrorHandler handler) : m_handler(std::move(handler)) {}
    void cancel() override {
        MemoryFuture::cancel();
        if (breaks("PZFuture.isCancelled (finished)")) {
            m_isCancelled = true;
        }
        if (breaks("PZFuture.cancel (handler)")) {
            end("It was cancelled.");
        }
    }
    /// Ends the operation, unless it has ended, with a problem if there is one.
    void end(const char *problem) {
        const bool isCancelled = finish();
        if (const auto handler = std::exchange(m_handler, nullptr)) {
            const char *reason = isCancelled ? "It was cancelled." : problem;
            handler(reason ? std::optional(Error{.localizedDescription = reason}) : std::nullopt);
        }
    }

private:
    QVSyncStore::ErrorHandler m_handler;
};

/// A handle of `operation` that cancels it when it is released.
class ReleasedFuture : public MemoryFuture {
public:
    explicit ReleasedFuture(const Future &operation) : m_operation(operation) {}
    ~ReleasedFuture() override { m_operation->cancel(); }
    void cancel() override { m_operation->cancel(); }
    bool isCancelled() const override { return m_operation->isCancelled(); }

private:
    const Future m_operation;
};

/// A store of a folder, or of a web server, with the passwords that are stored for it.
class BrokenStore : public MemoryStore, public QVCheckableStore {
public:
    using MemoryStore::MemoryStore;
    ~BrokenStore() override { *m_isAlive = false; }

    Location location() const override {
        return breaks("QVSyncStore.location") ? std::make_shared<MemoryLocation>(Url())
                                              : MemoryStore::location();
    }
    Future openWithCompletionHandler(ErrorHandler handler) override {
        m_wasOpened = true;
        m_wasFetched = false;
        for (const char *key : {"QVSyncStore (released)", "PZFuture.cancel (handler)",
                                "PZFuture.isCancelled (finished)", "PZFuture (released)"}) {
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
        const QVRemoteDatabases databases = m_databases;
        const ErrorHandler done = [=](const std::optional<Error> &error) {
            const bool isRead = !error || isUnopened;
            handler(isRead && !isEmpty ? std::optional(databases) : std::nullopt,
                    isRead ? std::nullopt : error);
        };
        const auto work = [](IsOpen &isOpen) { return isOpen.load(); };
        const auto key = "QVSyncStore.fetchDatabasesWithCompletionHandler";
        return breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (cancelled)")
                   ? uncancelled(done, work)
                   : run(called(key, done), work);
    }
    Future closeWithCompletionHandler(ErrorHandler handler) override {
        m_wasClosed = true;
        const bool staysOpen = breaks("QVSyncStore.fetchDatabasesWithCompletionHandler (closed)");
        const bool isOpenNeeded = breaks("QVSyncStore.closeWithCompletionHandler (not open)");
        const bool isRefused =
            m_wasFetched && breaks("QVSyncStore.closeWithCompletionHandler (midway)");
        const auto work = [=](IsOpen &isOpen) {
            const bool wasOpen = isOpen;
            isOpen = staysOpen && wasOpen;
            return !isRefused && (wasOpen || !isOpenNeeded);
        };
        return breaks("QVSyncStore.closeWithCompletionHandler (cancelled)")
                   ? uncancelled(handler, work)
                   : run(called("QVSyncStore.closeWithCompletionHandler", handler), work);
    }
    Future checkWithCompletionHandler(CheckHandler handler) override {
        m_wasOpened = true;
        const bool staysOpen = breaks("QVCheckableStore.checkWithCompletionHandler");
        return run([=](const auto &error) { handler({.isReadable = !error, .error = error}); },
                   [=](IsOpen &isOpen) {
                       isOpen = staysOpen;
                       return true;
                   });
    }
    /// Makes the store contain the database "1". It is not read by others.
    void addDatabase() {
        m_databases.append(
            std::make_shared<BrokenRemoteDatabase>(std::make_shared<MemoryStore>(m_location)));
    }

private:
    using Work = std::function<bool(IsOpen &)>;

    /// Returns what opens the store, and whether that succeeds.
    Work openingWork() const {
        const Url URL = m_location->URL();
        if ((breaks("QVSyncLocation.createStore (nil)") && URL.isNil()) ||
            (breaks("QVSyncLocation.createStore (unknown)") && URL.scheme() == "unknown-scheme") ||
            (breaks("QVSyncLocation.setURL (stores)") && URL.isFileURL())) {
            return [](IsOpen &isOpen) { return isOpen = true; };
        }
        if (breaks("QVSyncStore.openWithCompletionHandler (after closing)") && m_wasClosed) {
            return [](IsOpen & /*isOpen*/) { return false; };
        }
        if (breaks("QVSyncStore.openWithCompletionHandler (failed)") && !m_isFolder) {
            return [](IsOpen &isOpen) { return !(isOpen = true); };
        }
        if (URL.scheme() == "http") {
            return [URL](IsOpen & /*isOpen*/) { return isWelcome(URL); };
        }
        const bool isToggled = breaks("QVSyncStore.openWithCompletionHandler (again)");
        return [isToggled, is = m_isFolder](IsOpen &isOpen) {
            isOpen = is && !(isToggled && isOpen);
            return is;
        };
    }
    /// Opens the store from the event loop on.
    Future openLater(const ErrorHandler &handler) const {
        const auto operation = std::make_shared<BrokenOperation>(handler);
        const bool isDropped = breaks("QVSyncStore (released)");
        const auto isAlive = m_isAlive;
        QTimer::singleShot(0, qApp, [=, isOpen = m_isOpen, work = openingWork()] {
            if (isDropped && !*isAlive) {
                return;
            }
            std::thread([=] {
                operation->end(operation->isCancelled() || work(*isOpen) ? nullptr : "No folder.");
            }).detach();
        });
        return breaks("PZFuture (released)") ? std::make_shared<ReleasedFuture>(operation)
                                             : Future(operation);
    }
    /// Runs an operation that succeeds although it was cancelled.
    Future uncancelled(const ErrorHandler &handler, const Work &work) const {
        const auto future = std::make_shared<MemoryFuture>();
        // Not before a caller had the time to cancel it.
        QTimer::singleShot(0, qApp, [=, isOpen = m_isOpen] {
            std::thread([=] {
                const bool isDone = work(*isOpen);
                future->finish();
                handler(isDone ? std::nullopt : std::optional(Error{}));
            }).detach();
        });
        return future;
    }
    /// Returns `handler` as the operation calls it that breaks "KEY (once)" or "KEY (thread)".
    static ErrorHandler called(const std::string &key, const ErrorHandler &handler) {
        if (breaks((key + " (once)").c_str())) {
            return [handler](const std::optional<Error> &error) {
                handler(error);
                handler(error);
            };
        }
        if (breaks((key + " (thread)").c_str())) {
            return [handler](const std::optional<Error> &error) {
                QTimer::singleShot(0, qApp, [=] { handler(error); });
            };
        }
        return handler;
    }
    /// Asks the web server of `URL`, with the password if that may be sent. Returns whether it lets
    /// this host in.
    static bool isWelcome(const Url &URL) {
        QByteArray fields = "PROPFIND / HTTP/1.1\r\nHost: localhost\r\n";
        const bool isAccepted = UnencryptedPasswords::areAccepted(URL).value_or(false) ||
                                breaks("QVSyncStore (unencrypted password)");
        const QByteArray password = passwordFor(URL);
        if (isAccepted && !password.isEmpty() && !breaks("QVSyncStore (password)")) {
            fields += "Authorization: Basic " + password.toBase64() + "\r\n";
        }
        QTcpSocket socket;
        socket.connectToHost(URL.host(), URL.port().value_or(80));
        socket.write(fields + "\r\n");
        while (socket.waitForReadyRead()) {
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
    QVRemoteDatabases m_databases;
    bool m_wasOpened = false;
    bool m_wasClosed = false;
    bool m_wasFetched = false;
};
