#include "Engine/Notes/EngineNoteLibrary.h"

#include <QtCore/QUuid>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/InboxUUID.h"
#include "Host/Notifications.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {

Expected<void> checkName(const QString &name) {
    if (name.trimmed().isEmpty()) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   localizedSyncString("Enter a name for the database.")));
    }
    if (!Operation::isName(name)) {
        return failure(engineError(
            EngineErrorCode::InvalidDatabase,
            localizedSyncString("The name of the database is too long. Enter a shorter one.")));
    }
    return {};
}

void post(const QString &notification, QObject *database) {
    NotificationCenter::defaultCenter().post(notification, database);
}

}  // namespace

EngineNoteLibrary::EngineNoteLibrary(const ProfileDatabase &profile) : m_profile(profile) {}

Expected<void> EngineNoteLibrary::load() {
    if (Expected<void> done = m_profile.read(
            QStringLiteral("SELECT id, uuid, CAST(name AS BLOB), is_inbox, is_open,"
                           " (SELECT max(id) FROM operations WHERE database = databases.id)"
                           " FROM databases WHERE NOT %1 ORDER BY is_inbox DESC, id")
                .arg(DeletedDatabase::Condition),
            {},
            [this](const QSqlQuery &row) {
                append({row.value(0).toLongLong(), row.value(1).toString(),
                        ProfileDatabase::exactText(row.value(2)),
                        row.value(3).toBool() ? EngineDatabase::Kind::Inbox
                                              : EngineDatabase::Kind::Ordinary,
                        row.value(4).toBool(), row.value(5).toLongLong()});
            });
        !done) {
        return done;
    }
    if (m_databases.isEmpty() || !m_databases.first()->isInbox()) {
        return failure(engineError(
            EngineErrorCode::ProfileUnusable,
            "The profile “%1” has no inbox. Restore it from a backup or use another profile.",
            m_profile.path()));
    }
    return {};
}

QList<std::shared_ptr<QVDatabase>> EngineNoteLibrary::openDatabases() const {
    QList<std::shared_ptr<QVDatabase>> open;
    std::copy_if(m_databases.begin(), m_databases.end(), std::back_inserter(open),
                 [](const auto &database) { return database->isOpen(); });
    return open;
}

std::shared_ptr<NoteDatabase> EngineNoteLibrary::databaseForUUID(const QString &UUID) const {
    return m_databaseByUUID.value(UUID);
}

std::shared_ptr<EngineDatabase> EngineNoteLibrary::synchronizedDatabase(const QString &UUID) const {
    return UUID == InboxUUID ? m_databases.value(0) : m_databaseByUUID.value(UUID);
}

QList<std::shared_ptr<NoteDatabase>> EngineNoteLibrary::knownDatabases() const {
    return {m_databases.begin(), m_databases.end()};
}

std::shared_ptr<NoteDatabase> EngineNoteLibrary::inbox() const {
    return m_databases.value(0);
}

Expected<void> EngineNoteLibrary::createDatabase(const QString &name) {
    if (Expected<void> checked = checkName(name); !checked) {
        return checked;
    }
    EngineDatabase::Row row{.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces),
                            .name = name};
    return m_profile
        .write([&] {
            return NoteLog::insertDatabase(m_profile, row.UUID, name).and_then([&](qint64 id) {
                row.id = id;
                return NoteLog(m_profile, id).setName(name);
            });
        })
        .map([&] { add(row); });
}

Expected<bool> EngineNoteLibrary::importDatabase(const QString &UUID, const QString &name,
                                                 std::chrono::milliseconds duration) {
    if (const auto deleted = deletedDatabase(UUID)) {
        return restoreDatabase(deleted).map([] { return true; });
    }
    Expected<bool> isErased = DeletedDatabase::eraseSome(m_profile, UUID, duration);
    if (!isErased || !*isErased) {
        return isErased;
    }
    EngineDatabase::Row row{.UUID = UUID, .name = name};
    return m_profile
        .write([&] {
            return NoteLog::insertDatabase(m_profile, UUID, name).map([&](qint64 id) {
                row.id = id;
            });
        })
        .map([&] {
            add(row);
            return true;
        });
}

void EngineNoteLibrary::addDamage(const NoteInspection::Damage &damage) {
    for (const std::shared_ptr<EngineDatabase> &database : std::as_const(m_databases)) {
        database->addDamaged(damage.value(database->log().database()));
    }
}

Expected<void> EngineNoteLibrary::merge(const std::shared_ptr<EngineDatabase> &database,
                                        const Merge &merge,
                                        const std::function<Expected<void>()> &changes) {
    const QString name = database->name();
    return database->merge(merge, changes).map([&] {
        if (database->name() != name) {
            post(QVDatabaseRenamedNotification, database.get());
        }
    });
}

void EngineNoteLibrary::add(const EngineDatabase::Row &row) {
    append(row);
    const std::shared_ptr<EngineDatabase> database = m_databases.last();
    Q_EMIT knownDatabasesChanged();
    post(QVSyncPluginDidOpenDatabase, database.get());
}

Expected<void> EngineNoteLibrary::renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                                 const QString &name) {
    return checkName(name).and_then([&] { return own(database)->setName(name); }).map([&] {
        post(QVDatabaseRenamedNotification, database.get());
    });
}

Expected<void> EngineNoteLibrary::openDatabase(const std::shared_ptr<NoteDatabase> &database) {
    if (database->isOpen()) {
        return {};
    }
    return own(database)->setOpen(true).map(
        [&] { post(QVSyncPluginDidOpenDatabase, database.get()); });
}

Expected<void> EngineNoteLibrary::closeDatabase(const std::shared_ptr<NoteDatabase> &database) {
    if (!database->isOpen()) {
        return {};
    }
    return own(database)->setOpen(false).map(
        [&] { post(QVSyncPluginDidCloseDatabase, database.get()); });
}

Expected<void> EngineNoteLibrary::deleteDatabase(const std::shared_ptr<NoteDatabase> &database) {
    requireParameter(!database->isInbox(), "!database->isInbox()",
                     "EngineNoteLibrary::deleteDatabase", "Engine/Notes/EngineNoteLibrary");
    const auto deleted = own(database);
    return DeletedDatabase::mark(m_profile, deleted->UUID()).map([&] {
        m_databases.removeOne(deleted);
        m_databaseByUUID.remove(deleted->UUID());
        m_deleted.append(deleted);
        Q_EMIT databaseDeleted(deleted->UUID());
        Q_EMIT knownDatabasesChanged();
        if (deleted->isOpen()) {
            post(QVSyncPluginDidCloseDatabase, deleted.get());
        }
        Q_EMIT deletedDatabasesChanged();
    });
}

QList<std::shared_ptr<NoteDatabase>> EngineNoteLibrary::deletedDatabases() const {
    return {m_deleted.begin(), m_deleted.end()};
}

std::shared_ptr<EngineDatabase> EngineNoteLibrary::deletedDatabase(const QString &UUID) const {
    const auto found = std::find_if(m_deleted.begin(), m_deleted.end(),
                                    [&](const auto &deleted) { return deleted->UUID() == UUID; });
    return found == m_deleted.end() ? nullptr : *found;
}

Expected<void> EngineNoteLibrary::restoreDatabase(const std::shared_ptr<NoteDatabase> &database) {
    const auto restored = deletedDatabase(database->UUID());
    if (!restored || restored != database) {
        return failure(engineError(EngineErrorCode::InvalidDatabase,
                                   "“%1” can no longer be restored here. If a sync location has "
                                   "it, import it from there.",
                                   database->name()));
    }
    return DeletedDatabase::unmark(m_profile, restored->UUID()).map([&] {
        m_deleted.removeOne(restored);
        const auto next = std::upper_bound(
            m_databases.begin() + 1, m_databases.end(), restored,
            [](const auto &a, const auto &b) { return a->log().database() < b->log().database(); });
        m_databases.insert(next, restored);
        m_databaseByUUID.insert(restored->UUID(), restored);
        Q_EMIT databaseRestored(restored->UUID());
        Q_EMIT knownDatabasesChanged();
        if (restored->isOpen()) {
            post(QVSyncPluginDidOpenDatabase, restored.get());
        }
        Q_EMIT deletedDatabasesChanged();
    });
}

Expected<void> EngineNoteLibrary::giveUpDeleted(const QString &UUID,
                                                const std::function<Expected<void>()> &changes) {
    return m_profile.write(changes).map([&] {
        if (m_deleted.removeOne(deletedDatabase(UUID))) {
            Q_EMIT deletedDatabasesChanged();
        }
    });
}

Expected<HistoryLimits> EngineNoteLibrary::historyLimits() const {
    return NoteHistory::limits(m_profile);
}

Expected<qint64> EngineNoteLibrary::countOfVersionsBeyond(const HistoryLimits &limits) const {
    return NoteHistory::countBeyond(m_profile, limits, QDateTime::currentDateTime());
}

Expected<void> EngineNoteLibrary::setHistoryLimits(const HistoryLimits &limits) {
    return m_profile
        .write([&] {
            return NoteHistory::setLimits(m_profile, limits).and_then([this] {
                return NoteHistory::prune(m_profile, QDateTime::currentDateTime());
            });
        })
        .map([this] { Q_EMIT historyLimitsChanged(); });
}

std::shared_ptr<EngineDatabase> EngineNoteLibrary::own(
    const std::shared_ptr<NoteDatabase> &database) const {
    std::shared_ptr<EngineDatabase> known = m_databaseByUUID.value(database->UUID());
    requireParameter(known == database, "the database belongs to this library",
                     "EngineNoteLibrary::own", "Engine/Notes/EngineNoteLibrary");
    return known;
}

void EngineNoteLibrary::append(const EngineDatabase::Row &row) {
    const auto database = std::make_shared<EngineDatabase>(m_profile, row);
    m_databases.append(database);
    m_databaseByUUID.insert(row.UUID, database);
}
