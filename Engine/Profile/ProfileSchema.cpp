#include "Engine/Profile/ProfileSchema.h"

namespace {

QStringList countsOfConflicts() {
    const QString conflicts = QStringLiteral(
        "(SELECT count(*) FROM (SELECT 1 FROM operations WHERE database = %1"
        " AND note_uuid <> '' GROUP BY note_uuid HAVING count(*) > 1))");
    // The operations of a note: more than two make no difference.
    const QString edits = QStringLiteral(
        "(SELECT count(*) FROM (SELECT 1 FROM operations WHERE database = %1.database"
        " AND note_uuid = %1.note_uuid LIMIT 3))");
    return {
        // The numbers of notes with several operations.
        QStringLiteral("CREATE TABLE IF NOT EXISTS counts (database INTEGER PRIMARY KEY NOT NULL"
                       " REFERENCES databases (id) ON DELETE CASCADE,"
                       " conflicts INTEGER NOT NULL DEFAULT 0)"),
        QStringLiteral("INSERT OR IGNORE INTO counts SELECT id, %1 FROM databases")
            .arg(conflicts.arg(QStringLiteral("databases.id"))),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS database_added AFTER INSERT ON databases BEGIN"
                       " INSERT INTO counts (database) VALUES (new.id); END"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS conflict_counted AFTER INSERT ON operations"
                       " WHEN new.note_uuid <> '' AND %1 = 2 BEGIN"
                       " UPDATE counts SET conflicts = conflicts + 1 WHERE database = new.database;"
                       " END")
            .arg(edits.arg(QStringLiteral("new"))),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS conflict_discounted AFTER DELETE ON operations"
                       " WHEN old.note_uuid <> '' AND %1 = 1 BEGIN"
                       " UPDATE counts SET conflicts = conflicts - 1 WHERE database = old.database;"
                       " END")
            .arg(edits.arg(QStringLiteral("old"))),
        // Only a repair of a damaged row changes the note.
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS note_changed AFTER UPDATE OF note_uuid ON"
                       " operations WHEN new.note_uuid <> old.note_uuid BEGIN"
                       " UPDATE counts SET conflicts = %1 WHERE database = new.database; END")
            .arg(conflicts.arg(QStringLiteral("new.database"))),
    };
}

QStringList unwrittenChanges() {
    return {
        // The places for which "unwritten" is kept, and whether it is all that they lack.
        QStringLiteral("CREATE TABLE IF NOT EXISTS compared_places ("
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " place TEXT NOT NULL, is_complete INTEGER NOT NULL DEFAULT 0,"
                       " PRIMARY KEY (database, place)) WITHOUT ROWID"),
        // The operations and superseded identifiers that were added since and that no record of the
        // place contains.
        QStringLiteral("CREATE TABLE IF NOT EXISTS unwritten (place TEXT NOT NULL,"
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " is_superseded INTEGER NOT NULL, digest BLOB NOT NULL,"
                       " PRIMARY KEY (place, database, is_superseded, digest)) WITHOUT ROWID"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS operation_added AFTER INSERT ON operations"
                       " BEGIN INSERT OR IGNORE INTO unwritten SELECT place, database, 0,"
                       " new.digest FROM compared_places WHERE database = new.database; END"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS operation_removed AFTER DELETE ON operations"
                       " BEGIN DELETE FROM unwritten WHERE place IN (SELECT place FROM"
                       " compared_places WHERE database = old.database) AND database = old.database"
                       " AND is_superseded = 0 AND digest = old.digest; END"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS identifier_superseded AFTER INSERT ON"
                       " superseded BEGIN INSERT OR IGNORE INTO unwritten SELECT place, database,"
                       " 1, new.digest FROM compared_places WHERE database = new.database; END"),
        // What earlier versions have recorded instead: the state up to which all was written.
        QStringLiteral("INSERT OR IGNORE INTO compared_places"
                       " SELECT d.id, substr(key, length('written ' || d.id || ' ') + 1), 1"
                       " FROM databases AS d JOIN settings"
                       " ON substr(key, 1, length('written ' || d.id || ' ')) ="
                       " 'written ' || d.id || ' '"
                       " WHERE value = (SELECT coalesce(max(id), 0) FROM operations"
                       "  WHERE database = d.id) || ' ' ||"
                       " (SELECT count(*) FROM superseded WHERE database = d.id)"),
        QStringLiteral("DELETE FROM settings WHERE key LIKE 'written %'"),
    };
}

QStringList tablesOfNotes() {
    return {
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS settings (key TEXT PRIMARY KEY NOT NULL, value NOT NULL)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS databases (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " uuid TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
                       " is_inbox INTEGER NOT NULL DEFAULT 0, is_open INTEGER NOT NULL DEFAULT 1,"
                       " sent INTEGER NOT NULL DEFAULT 0)"),
        QStringLiteral(
            "CREATE UNIQUE INDEX IF NOT EXISTS one_inbox ON databases (is_inbox) WHERE is_inbox"),
        // An operation has left the profile if its id is not greater than "sent" of its database.
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS operations (id INTEGER PRIMARY KEY AUTOINCREMENT,"
            " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
            " digest BLOB NOT NULL, note_uuid TEXT NOT NULL, title TEXT NOT NULL,"
            " text TEXT NOT NULL, modified INTEGER, supersedes BLOB NOT NULL,"
            " salt BLOB NOT NULL, position INTEGER NOT NULL,"
            " UNIQUE (database, digest))"),
        // The indexes that earlier versions had instead.
        QStringLiteral("DROP INDEX IF EXISTS notes"),
        QStringLiteral("DROP INDEX IF EXISTS order_of_notes"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS operations_of_notes"
                       " ON operations (database, note_uuid, modified, digest)"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS places_of_notes"
                       " ON operations (database, position, note_uuid)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS superseded ("
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " digest BLOB NOT NULL, PRIMARY KEY (database, digest)) WITHOUT ROWID"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS known_transactions (place TEXT NOT NULL,"
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " name TEXT NOT NULL, operations BLOB NOT NULL, superseded BLOB NOT NULL,"
                       " size INTEGER NOT NULL,"
                       " PRIMARY KEY (place, database, name)) WITHOUT ROWID"),
        // Of the records, not of their parts, and without the identifiers: SQLite reads all of a
        // row that it compares.
        QStringLiteral("CREATE INDEX IF NOT EXISTS sizes_of_known_transactions"
                       " ON known_transactions (place, database, size)"
                       " WHERE instr(name, ' ') = 0"),
    };
}

// States are loaded in the order of their ids, which is the order in which they were added.
QStringList tablesOfLocations() {
    return {
        QStringLiteral("CREATE TABLE IF NOT EXISTS locations (uuid TEXT PRIMARY KEY NOT NULL,"
                       " position INTEGER NOT NULL, url TEXT NOT NULL)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS states (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " location_uuid TEXT NOT NULL REFERENCES locations (uuid) ON DELETE CASCADE,"
                       " database_uuid TEXT NOT NULL, database_name TEXT NOT NULL,"
                       " enabled INTEGER NOT NULL, sync_on_open INTEGER NOT NULL,"
                       " sync_on_close INTEGER NOT NULL, last_synced INTEGER,"
                       " schedule TEXT, schedule_minutes INTEGER, schedule_days INTEGER, %1,"
                       " UNIQUE (location_uuid, database_uuid))")
            .arg(ProfileSchema::columnsOfResults().join(QStringLiteral(", "))),
        QStringLiteral("CREATE TABLE IF NOT EXISTS grants (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " path TEXT NOT NULL UNIQUE)"),
        QStringLiteral(
            "CREATE TABLE IF NOT EXISTS trusted_certificates (location_uuid TEXT NOT NULL,"
            " fingerprint TEXT NOT NULL, PRIMARY KEY (location_uuid, fingerprint))"),
    };
}

QStringList tablesOfVersions() {
    return {
        // Notes that were replaced or deleted. The texts come last, so that reading the other
        // columns does not read them.
        QStringLiteral("CREATE TABLE IF NOT EXISTS versions (id INTEGER PRIMARY KEY AUTOINCREMENT,"
                       " ended INTEGER NOT NULL, size INTEGER NOT NULL,"
                       " database INTEGER NOT NULL REFERENCES databases (id) ON DELETE CASCADE,"
                       " note_uuid TEXT NOT NULL, place TEXT NOT NULL, modified INTEGER,"
                       " title TEXT NOT NULL, text TEXT NOT NULL)"),
        QStringLiteral(
            "CREATE INDEX IF NOT EXISTS versions_of_notes ON versions (database, note_uuid)"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS age_of_versions ON versions (ended)"),
        // One row with the sum of versions.size.
        QStringLiteral("CREATE TABLE IF NOT EXISTS size_of_versions (bytes INTEGER NOT NULL)"),
        QStringLiteral("INSERT INTO size_of_versions SELECT 0"
                       " WHERE NOT EXISTS (SELECT 1 FROM size_of_versions)"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS version_added AFTER INSERT ON versions BEGIN"
                       " UPDATE size_of_versions SET bytes = bytes + new.size; END"),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS version_removed AFTER DELETE ON versions BEGIN"
                       " UPDATE size_of_versions SET bytes = bytes - old.size; END"),
    };
}

}  // namespace

QStringList ProfileSchema::tables() {
    return tablesOfNotes() + tablesOfLocations() + tablesOfVersions();
}

QStringList ProfileSchema::derivedTables() {
    return countsOfConflicts() + unwrittenChanges();
}

QStringList ProfileSchema::columnsOfResults() {
    return {QStringLiteral("result_date INTEGER"), QStringLiteral("result_reason TEXT"),
            QStringLiteral("result_summary TEXT"), QStringLiteral("result_received INTEGER"),
            QStringLiteral("result_sent INTEGER"), QStringLiteral("result_problems INTEGER")};
}
