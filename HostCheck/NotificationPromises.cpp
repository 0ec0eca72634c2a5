#include "HostCheck/NotificationPromises.h"

#include <thread>

#include "Host/Notifications.h"
#include "Host/QVDatabase.h"
#include "Host/QVHourlySchedule.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"
#include "Platform/Foundation/NotificationCenter.h"

using namespace Checking;

namespace NotificationPromises {
namespace {

constexpr char Header[] = "Host/Notifications.h";

/// What was posted under one name while this object exists.
class Posted : public QObject {
public:
    explicit Posted(const QString &name) {
        NotificationCenter::defaultCenter().addObserver(
            this, name, [this](const Notification &posted) { note(posted); });
    }
    /// Throws Broken unless there was one notification, on this thread, of `database`.
    void requireOne(const QVDatabase &database) const {
        require(m_count > 0, "no notification is posted");
        require(m_count == 1, "more than one notification is posted");
        require(m_isOnMainThread, "the notification is posted on another thread");
        require(m_UUID == database.UUID(), "the object is not the database");
    }
    /// Whether QVDatabase::databases() contained the database at that time.
    bool wasOpen() const { return m_wasOpen; }
    /// The name of the object at that time.
    const QString &nameOfObject() const { return m_name; }

private:
    void note(const Notification &posted) {
        ++m_count;
        m_isOnMainThread = std::this_thread::get_id() == m_mainThread;
        const auto *database = qobject_cast<QVDatabase *>(posted.object);
        m_UUID = database ? database->UUID() : QString();
        m_name = database ? database->name() : QString();
        m_wasOpen = false;
        for (const auto &open : QVDatabase::databases()) {
            m_wasOpen = m_wasOpen || (open && open->UUID() == m_UUID);
        }
    }

    const std::thread::id m_mainThread = std::this_thread::get_id();
    int m_count = 0;
    bool m_isOnMainThread = false;
    bool m_wasOpen = false;
    QString m_UUID;
    QString m_name;
};

/// A new database of the host, which is closed again with this object.
class NewDatabase {
public:
    NewDatabase() {
        const auto opened = host().openNewDatabase(QStringLiteral("Checked"));
        require(opened.has_value(), "the host cannot open a new database");
        requireOffer(*opened != nullptr);
        m_database = *opened;
    }
    ~NewDatabase() {
        if (m_isOpen && !host().closeDatabase(m_database)) {
            qWarning("The host could not close a database.");
        }
    }
    NewDatabase(const NewDatabase &) = delete;
    NewDatabase &operator=(const NewDatabase &) = delete;

    void rename(const QString &name) const {
        require(host().renameDatabase(m_database, name).has_value(),
                "the host cannot rename a database");
    }
    void close() {
        m_isOpen = false;
        require(host().closeDatabase(m_database).has_value(), "the host cannot close a database");
    }
    QVDatabase &operator*() const { return *m_database; }

private:
    std::shared_ptr<QVDatabase> m_database;
    bool m_isOpen = true;
};

const QString OtherName = QStringLiteral("Renamed");

void openingIsPosted() {
    const Posted posted(QVSyncPluginDidOpenDatabase);
    const NewDatabase database;
    posted.requireOne(*database);
    require(posted.wasOpen(), "the open databases do not contain the object");
}

void closingIsPosted() {
    NewDatabase database;
    const Posted posted(QVSyncPluginDidCloseDatabase);
    database.close();
    posted.requireOne(*database);
    require(!posted.wasOpen(), "the open databases still contain the object");
}

void renamingIsPosted() {
    const NewDatabase database;
    const Posted posted(QVDatabaseRenamedNotification);
    database.rename(OtherName);
    posted.requireOne(*database);
    require(posted.nameOfObject() == OtherName, "the name is not the new one");
}

void renamingIsAnnounced() {
    const NewDatabase database;
    QString seen;
    QObject receiver;
    QObject::connect(&*database, &QVDatabase::nameChanged, &receiver,
                     [&] { seen = (*database).name(); });
    database.rename(OtherName);
    require(!seen.isNull(), "the name has changed without the signal");
    require(seen == OtherName, "the signal precedes the change");
}

void firingIsPosted() {
    auto &schedules = classObject<QVHourlySchedule::Class>();
    const InboxInFolder scheduled;
    scheduled.state->setSchedule(schedules.initWithHourlyOffset(0));
    int count = 0;
    bool isOnMainThread = true;
    const auto mainThread = std::this_thread::get_id();
    QObject receiver;
    NotificationCenter::defaultCenter().addObserver(
        &receiver, QVSyncScheduleDidFireNotification, [&](const Notification & /*posted*/) {
            ++count;
            isOnMainThread = std::this_thread::get_id() == mainThread;
        });
    requireOffer(host().fireSchedules(scheduled.state->schedule()->nextScheduledDate()));
    // The folder is removed afterwards, so what has been started must end.
    Handler<> ended;
    dispatcher().performSynchronizationsWithSynchronizationStates({scheduled.state},
                                                                  ended.function());
    ended.requireEnd();
    require(count > 0, "no notification is posted");
    require(isOnMainThread, "the notification is posted on another thread");
}

void closedDatabaseIsFound() {
    NewDatabase database;
    database.close();
    const auto found = QVSyncPlugin::databaseForUUID((*database).UUID(), false);
    require(found && found->UUID() == (*database).UUID(), "a closed database is not found");
}

constexpr HostPromise Promises[] = {
    {"QVSyncPluginDidOpenDatabase", Header,
     "Posted after a database was opened or created. The object is the QVDatabase, which "
     "QVDatabase::databases() contains.",
     &openingIsPosted},
    {"QVSyncPluginDidCloseDatabase", Header,
     "Posted when a database was closed. The object is the QVDatabase, which "
     "QVDatabase::databases() does not contain any more.",
     &closingIsPosted},
    {"QVDatabaseRenamedNotification", Header,
     "Posted after a database was renamed, by the user or by a synchronization. The object is the "
     "QVDatabase, whose `name` is the new one.",
     &renamingIsPosted},
    {"QVSyncScheduleDidFireNotification", Header,
     "Posted when a schedule has fired, so that displayed dates can be updated.", &firingIsPosted},
    {"QVDatabase.nameChanged", "Host/QVDatabase.h",
     "Emitted after the name has changed, also by a synchronization; name() returns the new one.",
     &renamingIsAnnounced},
    {"QVSyncPlugin.databaseForUUID (closed)", "Host/QVSyncPlugin.h",
     "Returns the database with this UUID on this computer, open or closed, or nullptr if there is "
     "none.",
     &closedDatabaseIsFound},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace NotificationPromises
