// A host that keeps everything in memory: two databases, and a folder that they synchronize with.
#pragma once
#include <Host/QVApplication.h>
#include <Host/QVDatabase.h>
#include <Host/QVSyncLocation.h>
#include <Host/QVSyncLocationFormatter.h>
#include <Host/QVSyncLocationsController.h>
#include <Host/QVSyncPlugin.h>
#include <Host/QVSyncStore.h>
#include <Host/SyncStrings.h>
#include <Platform/Foundation/Assertion.h>
#include <QtCore/QDebug>
#include <QtCore/QDir>
#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtGui/QPixmap>
#include <atomic>
#include <mutex>
using Database = std::shared_ptr<QVDatabase>;
using Location = std::shared_ptr<QVSyncLocation>;
using Store = std::shared_ptr<QVSyncStore>;
using State = std::shared_ptr<QVSyncState>;
using Future = std::shared_ptr<PZFuture>;

// Step 1: a database has an identifier and a name.
struct MemoryDatabase : QVDatabase {
    MemoryDatabase(const QString &UUID, const QString &name) : m_UUID(UUID), m_name(name) {}
    QString UUID() const override { return m_UUID; }
    QString name() const override { return m_name; }
    const QString m_UUID, m_name;
};
// Step 2: a state says how a database synchronizes with a location. Each setter announces its key.
struct MemoryState : QVSyncState {
    MemoryState(const QString &UUID, const QString &name, const std::weak_ptr<QVSyncLocation> &at)
        : m_UUID(UUID), m_name(name), m_location(at) {}
    QString databaseUUID() const override { return m_UUID; }
    QString databaseName() const override { return m_name; }
    Location destination() const override { return m_location.lock(); }
    bool isEnabled() const override { return m_enabled; }
    void setEnabled(bool is) override { set(m_enabled, is, &QVSyncState::enabledChanged); }
    QVSyncSchedulePtr schedule() const override { return m_schedule; }
    void setSchedule(const QVSyncSchedulePtr &is) override {
        set(m_schedule, is, &QVSyncState::scheduleChanged);
    }
    bool syncOnOpen() const override { return m_onOpen; }
    void setSyncOnOpen(bool is) override { set(m_onOpen, is, &QVSyncState::syncOnOpenChanged); }
    bool syncOnClose() const override { return m_onClose; }
    void setSyncOnClose(bool is) override { set(m_onClose, is, &QVSyncState::syncOnCloseChanged); }
    QDateTime lastSynced() const override { return m_date; }
    void setLastSynced(const QDateTime &to) { set(m_date, to, &QVSyncState::lastSyncedChanged); }
    void set(auto &variable, const auto &value, void (QVSyncState::*changed)()) {
        variable = value;
        (this->*changed)();
    }
    const QString m_UUID, m_name;
    const std::weak_ptr<QVSyncLocation> m_location;
    bool m_enabled = false, m_onOpen = false, m_onClose = false;
    QVSyncSchedulePtr m_schedule;
    QDateTime m_date;
};
// Step 3: a future cancels an operation. Attached futures are cancelled while nothing is locked.
struct MemoryFuture : PZFuture {
    void cancel() override {
        std::unique_lock lock(mutex);
        m_isCancelled = m_isCancelled || !m_isFinished;
        const auto attached = std::exchange(m_attached, {});
        lock.unlock();
        for (const auto &each : attached) {
            if (const Future future = each.first.lock()) {
                future->cancel();
            }
        }
    }
    bool isCancelled() const override { return m_isCancelled; }
    void cascadeCancellationToFuture(const Future &future) override {
        std::unique_lock lock(mutex);
        if (!m_isCancelled) {
            m_attached.append({future, keepsAlive(future, this) ? nullptr : future});
            return;
        }
        lock.unlock();
        future->cancel();
    }
    void passControlToFuture(const Future &future) override {
        m_isFinished = false;
        cascadeCancellationToFuture(future);
    }
    bool finish() {
        const std::lock_guard lock(mutex);
        m_isFinished = true;
        return m_isCancelled;
    }
    static bool keepsAlive(const Future &future, const PZFuture *other) {
        const auto *ours = dynamic_cast<const MemoryFuture *>(future.get());
        const auto leads = [&](const auto &each) { return keepsAlive(each.second, other); };
        return future.get() == other || (ours && std::ranges::any_of(ours->m_attached, leads));
    }
    static inline std::mutex mutex;
    std::atomic<bool> m_isCancelled = false, m_isFinished = false;
    QList<std::pair<std::weak_ptr<PZFuture>, Future>> m_attached;
};
// Step 4: a store reads a location. Its handlers are called once, on threads of its own.
struct MemoryStore : QVSyncStore {
    explicit MemoryStore(const Location &location) : m_location(location) {}
    Location location() const override { return m_location; }
    Future openWithCompletionHandler(ErrorHandler handler) override {
        return run(handler, [is = m_isFolder](std::atomic<bool> &isOpen) { return isOpen = is; });
    }
    Future fetchDatabasesWithCompletionHandler(DatabasesHandler handler) override {
        const auto done = [handler](const std::optional<Error> &error) {
            handler(error ? std::nullopt : std::optional(QVRemoteDatabases()), error);
        };
        return run(done, [](std::atomic<bool> &isOpen) { return isOpen.load(); });
    }
    Future closeWithCompletionHandler(ErrorHandler handler) override {
        return run(handler, [](std::atomic<bool> &isOpen) { return !(isOpen = false); });
    }
    Future run(ErrorHandler handler, std::function<bool(std::atomic<bool> &)> work) const {
        const auto future = std::make_shared<MemoryFuture>();
        threads.start([future, handler, work, isOpen = m_isOpen] {
            const char *problem = future->finish() ? "It was cancelled."
                                  : !work(*isOpen) ? "The folder is not open."
                                                   : nullptr;
            handler(problem ? std::optional(Error{.localizedDescription = problem}) : std::nullopt);
        });
        return future;
    }
    static inline QThreadPool threads;
    const Location m_location;
    const bool m_isFolder = m_location->URL().isFileURL();
    const std::shared_ptr<std::atomic<bool>> m_isOpen = std::make_shared<std::atomic<bool>>(false);
};
// Step 5: a location has an address, and at most one state for each database.
struct MemoryLocation : QVSyncLocation, std::enable_shared_from_this<MemoryLocation> {
    explicit MemoryLocation(const Url &URL) : m_URL(URL) {}
    Url URL() const override { return m_URL; }
    void setURL(const Url &URL) override {
        m_URL = URL;
        Q_EMIT URLChanged();
    }
    QVSyncStates synchronizationStates() const override { return m_states; }
    State stateForDatabaseWithUUID(const QString &UUID) const override { return m_byUUID[UUID]; }
    State addStateForDatabaseWithUUID(const QString &UUID, const QString &name) override {
        requireParameter(!UUID.isEmpty(), "UUID", "MemoryLocation::addState", "MemoryHost");
        State &state = m_byUUID[UUID];
        if (!state) {
            state = std::make_shared<MemoryState>(UUID, name, weak_from_this());
            m_states.append(state);
            Q_EMIT synchronizationStatesChanged();
        }
        return state;
    }
    Store createStore() override { return std::make_shared<MemoryStore>(shared_from_this()); }
    Url m_URL;
    QVSyncStates m_states;
    QMap<QString, State> m_byUUID;
};
// Step 6: the locations in the user's order, the dispatcher, and the plug-in that has both.
struct MemoryLocations : QVSyncLocationsController {
    QList<Location> syncLocations() const override { return m_list; }
    qsizetype countOfSyncLocations() const override { return m_list.size(); }
    void insertObjectInSyncLocationsAtIndex(const Location &location, qsizetype index) override {
        requireParameter(dynamic_cast<MemoryLocation *>(location.get()), "location",
                         "MemoryLocations::insert", "MemoryHost");
        m_list.insert(index, location);
    }
    qsizetype indexOfObjectInSyncLocations(const Location &location) const override {
        return m_list.indexOf(location);
    }
    void removeObjectFromSyncLocationsAtIndex(qsizetype index) override {
        m_list.removeOne(m_list.value(index));
    }
    bool save(std::optional<Error> * /*error*/) override { return true; }
    QList<Location> m_list{std::make_shared<MemoryLocation>(Url::fileURL(QDir::homePath()))};
};
struct MemoryDispatcher : QVSyncDispatcher {
    using Handler = std::function<void()>;
    void cleanRemoteStoreWithSynchronizationState(const State & /*state*/, Handler done) override {
        QTimer::singleShot(0, this, done);
    }
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states) override {
        performSynchronizationsWithSynchronizationStates(states, [] {});
    }
    void performSynchronizationsWithSynchronizationStates(const QVSyncStates &states,
                                                          Handler done) override {
        QTimer::singleShot(0, this, [states, done] {
            for (const State &state : states) {
                auto *ours = dynamic_cast<MemoryState *>(state.get());
                if (ours && ours->isEnabled() && ours->destination()) {
                    ours->setLastSynced(QDateTime::currentDateTime());
                }
            }
            done();
        });
    }
    QString activity() const override { return {}; }
};
struct MemoryPlugin : QVSyncPlugin {
    QVSyncLocationsController *locationsController() const override { return &m_locations; }
    QVSyncDispatcher *dispatcher() const override { return &m_dispatcher; }
    QVDirectConnectionServer *server() const override { return nullptr; }
    Store localStore() const override { return std::make_shared<MemoryStore>(m_computer); }
    bool usesSandboxedAccess() const override { return false; }
    void bookmarkURL(const Url & /*URL*/) override {}
    void removeBookmarkForURL(const Url & /*URL*/) override {}
    QStringList bookmarkDictionaryKeys() const override { return {}; }
    bool isVolumeMountedAtPath(const QString & /*path*/) const override { return true; }
    const Location m_computer = std::make_shared<MemoryLocation>(Url::fileURL("/"));
    mutable MemoryLocations m_locations;
    mutable MemoryDispatcher m_dispatcher;
};
// Step 7: the application has the databases and shows errors.
struct MemoryApplication : QVApplication {
    MemoryApplication() { setNSApp(this); }
    ~MemoryApplication() override { setNSApp(nullptr); }
    Database inbox() const override { return databases["1"]; }
    void logItemCmd(const QString & /*title*/, const QString &info) override { qInfo() << info; }
    void presentError(const Error &error) override { qWarning() << error.localizedDescription; }
    const QMap<QString, Database> databases{
        {"1", std::make_shared<MemoryDatabase>("1", "Inbox")},
        {"2", std::make_shared<MemoryDatabase>("2", "Letters")}};
};
// Step 8: class objects, through which the pane finds and makes all this.
struct MemoryFormatter : QVSyncLocationFormatter {
    explicit MemoryFormatter(const Url &URL) : m_URL(URL) {}
    QString title() const override { return QDir(m_URL.path()).dirName(); }
    QPixmap icon() const override {
        QPixmap icon(64, 64);
        icon.fill(Qt::gray);
        icon.setDevicePixelRatio(2);
        return icon;
    }
    QString locationType() const override {
        return localizedSyncString(m_URL.isFileURL() ? "Local Sync Store" : "Unknown Location");
    }
    const Url m_URL;
};
struct MemorySchedule : QVSyncSchedule {
    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    QDateTime nextScheduledDate() const override { return {}; }
};
struct Classes : QVSyncPlugin::Class,
                 QVDatabase::Class,
                 QVSyncLocation::Class,
                 QVSyncLocationFormatter::Class,
                 QVSyncSchedule::Class,
                 PZFuture::Class {
    ~Classes() override { MemoryStore::threads.waitForDone(); }
    bool isAvailable() const override { return true; }
    QVSyncPlugin *plugin() const override { return &m_plugin; }
    Database databaseForUUID(const QString &UUID, bool /*lookingUpAll*/) const override {
        return m_application.databases.value(UUID);
    }
    QList<Database> databases() const override { return m_application.databases.values(); }
    Location syncLocationWithURL(const Url &URL) const override {
        return std::make_shared<MemoryLocation>(URL);
    }
    std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(
        const Url &URL) const override {
        return std::make_unique<MemoryFormatter>(URL);
    }
    QVSyncSchedulePtr newSchedule() const override { return std::make_shared<MemorySchedule>(); }
    Future future() const override { return std::make_shared<MemoryFuture>(); }
    MemoryApplication m_application;
    mutable MemoryPlugin m_plugin;
    HostClassRegistration m_registrations[6] = {
        HostClassRegistration(static_cast<QVSyncPlugin::Class *>(this)),
        HostClassRegistration(static_cast<QVDatabase::Class *>(this)),
        HostClassRegistration(static_cast<QVSyncLocation::Class *>(this)),
        HostClassRegistration(static_cast<QVSyncLocationFormatter::Class *>(this)),
        HostClassRegistration(static_cast<QVSyncSchedule::Class *>(this)),
        HostClassRegistration(static_cast<PZFuture::Class *>(this))};
};
