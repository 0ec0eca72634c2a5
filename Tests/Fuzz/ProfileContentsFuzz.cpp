// Any rows in the tables of a profile load, or are refused with a message: a profile may come from
// a damaged disk or from another program. Each line of the input is a table and the values of a
// row, separated by tabs: n (null), i and a number, t and a text, b and hexadecimal digits. "#"
// stands for the number of the line in eight digits, so that lines that are repeated differ.

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlQuery>
#include <algorithm>
#include <map>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Plugin/BuiltInLocationKinds.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Schedules/ScheduleByClock.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

namespace {

const QHash<QByteArray, QString> Columns{
    {"settings", QStringLiteral("key, value")},
    {"databases", QStringLiteral("id, uuid, name, is_inbox, is_open, sent")},
    {"operations",
     QStringLiteral("database, digest, note_uuid, title, text, modified, supersedes, salt,"
                    " position")},
    {"superseded", QStringLiteral("database, digest")},
    {"known_transactions", QStringLiteral("place, database, name, operations, superseded, size")},
    {"counts", QStringLiteral("database, conflicts")},
    {"compared_places", QStringLiteral("database, place, is_complete")},
    {"unwritten", QStringLiteral("place, database, is_superseded, digest")},
    {"locations", QStringLiteral("uuid, position, url")},
    {"states",
     QStringLiteral("location_uuid, database_uuid, database_name, enabled, sync_on_open,"
                    " sync_on_close, last_synced, schedule, schedule_minutes, schedule_days")},
    {"grants", QStringLiteral("path")},
    {"trusted_certificates", QStringLiteral("location_uuid, fingerprint")},
};

/// The number of databases that are checked. Each takes a number of statements, whatever it
/// contains.
constexpr qsizetype MostChecked = 500;

/// A profile that is opened once; each input changes it and is rolled back.
class Profile {
public:
    Profile() {
        require(m_database
                    .open(
                        m_directory.filePath(QStringLiteral("profile")),
                        [this] { return writeFirstContents(m_database, FirstContents::Inbox); },
                        [] { return Expected<void>(); })
                    .has_value(),
                "a profile can be made");
    }
    const ProfileDatabase &database() const { return m_database; }

private:
    QTemporaryDir m_directory;
    ProfileDatabase m_database;
};

const ProfileDatabase &profile() {
    if (!QCoreApplication::instance()) {
        static int count = 1;
        static char name[] = "fuzz";
        static char *arguments[] = {name, nullptr};
        static const QCoreApplication application(count, arguments);
    }
    static const Profile profile;
    return profile.database();
}

QVariant value(const QByteArray &text) {
    const QByteArray rest = text.mid(1);
    switch (text.isEmpty() ? 'n' : text.front()) {
        case 'i':
            return rest.toLongLong();
        case 't':
            return QString::fromUtf8(rest);
        case 'b':
            return QByteArray::fromHex(rest);
        default:
            return {};
    }
}

/// Adds rows unless SQLite refuses them, which is no concern of this target.
class Insertions {
public:
    void insertRow(const QByteArray &line) {
        const QByteArrayList parts = line.split('\t');
        const QString columns = Columns.value(parts.first());
        if (columns.isEmpty()) {
            return;
        }
        QVariantList values;
        for (qsizetype i = 0; i <= columns.count(u','); ++i) {
            values.append(value(parts.value(i + 1)));
        }
        static_cast<void>(profile().run(statement(parts.first(), columns), values));
    }

private:
    /// Most of the time would be needed to prepare it for each row.
    QSqlQuery &statement(const QByteArray &table, const QString &columns) {
        const auto known = m_statements.find(table);
        if (known != m_statements.end()) {
            return known->second;
        }
        const QStringList places(columns.count(u',') + 1, QStringLiteral("?"));
        auto made =
            profile().prepare(QStringLiteral("INSERT OR REPLACE INTO %1 (%2) VALUES (%3)")
                                  .arg(QString::fromLatin1(table), columns, places.join(u',')));
        require(made.has_value(), "the statement is valid");
        return m_statements.emplace(table, std::move(*made)).first->second;
    }

    std::map<QByteArray, QSqlQuery> m_statements;
};

void checkDatabases() {
    EngineNoteLibrary library(profile());
    if (!library.load()) {
        return;
    }
    const auto databases = library.knownDatabases();
    require(!databases.isEmpty() && databases.first()->isInbox(), "the inbox comes first");
    for (const auto &database : databases.first(std::min(databases.size(), MostChecked))) {
        const auto own = std::dynamic_pointer_cast<EngineDatabase>(database);
        const Expected<QList<Note>> notes = own->notes();
        QSet<QString> UUIDs;
        for (const Note &note : notes.value_or(QList<Note>())) {
            require(!UUIDs.contains(note.UUID), "every note has a UUID of its own");
            UUIDs.insert(note.UUID);
        }
        static_cast<void>(own->log().name());
        static_cast<void>(own->countOfConflicts());
        const qint64 id = own->log().database();
        static_cast<void>(KnownTransactions(profile(), QStringLiteral("place"), id).all());
        const auto faults = DerivedTables::check(profile(), id);
        require(!faults || DerivedTables::repair(profile(), id, *faults).has_value(),
                "what is derived can be derived again");
        require(!faults || DerivedTables::check(profile(), id)->isEmpty(),
                "what was derived again is right");
    }
}

void checkState(const QVSyncState &state) {
    const auto *schedule = dynamic_cast<const ScheduleByClock *>(state.schedule().get());
    const QDateTime now(QDate(2026, 3, 29), QTime(1, 30));
    const QDateTime next = schedule ? schedule->nextDateAfter(now) : QDateTime();
    require(!next.isValid() || next > now, "a schedule fires later");
}

void checkLocations() {
    EngineContext context(profile());
    if (!context.load()) {
        return;
    }
    EngineLocationsController controller(
        profile(), std::make_shared<EngineLocationKinds>(context.storeOperations,
                                                         builtInLocationKinds(context)));
    if (!controller.load()) {
        return;
    }
    const auto locations = controller.syncLocations();
    for (const auto &location : locations) {
        const auto own = std::dynamic_pointer_cast<EngineSyncLocation>(location);
        require(!EngineLocationFormatter(own->URL(), own->kind()).title().isEmpty(),
                "every location has a title");
        require(own->createBlobStore() != nullptr, "every location has a store");
        const QVSyncStates states = own->synchronizationStates();
        for (const auto &state : states) {
            require(!state->databaseUUID().isEmpty(), "every state has a database");
            checkState(*state);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    QByteArrayList lines = expanded(bytes(data, size)).split('\n');
    static_cast<void>(profile().write([&]() -> Expected<void> {
        Insertions insertions;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            insertions.insertRow(
                lines[i].replace('#', QByteArray::number(i).rightJustified(8, '0')));
        }
        checkDatabases();
        checkLocations();
        return failure(operationCancelled());
    }));
    return 0;
}
