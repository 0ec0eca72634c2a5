#include "Engine/Notes/EngineNoteLibrary.h"

#include <QtCore/QUuid>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/InboxUUID.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/Notifications.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {

std::optional<Error> errorOfName(const QString &name) {
    if (name.trimmed().isEmpty()) {
        return engineError(EngineErrorCode::InvalidDatabase,
                           localizedSyncString("Enter a name for the database."));
    }
    if (!Operation::isName(name)) {
        return engineError(
            EngineErrorCode::InvalidDatabase,
            localizedSyncString("The name of the database is too long. Enter a shorter one."));
    }
    return {};
}

void post(const QString &notification, QObject *database) {
    NotificationCenter::defaultCenter().post(notification, database);
}

}  // namespace

EngineNoteLibrary::EngineNoteLibrary(const ProfileDatabase &profile) : m_profile(profile) {}

std::optional<Error> EngineNoteLibrary::load() {
    QSqlQuery rows = m_profile.prepare(QStringLiteral(
        "SELECT uuid, name, is_inbox, is_open FROM databases ORDER BY is_inbox DESC, id"));
    if (!rows.exec()) {
        return m_profile.errorOf(rows);
    }
    while (rows.next()) {
        append(std::make_shared<EngineDatabase>(
            m_profile, rows.value(0).toString(), rows.value(1).toString(),
            rows.value(2).toBool() ? EngineDatabase::Kind::Inbox : EngineDatabase::Kind::Ordinary,
            rows.value(3).toBool()));
    }
    if (m_databases.isEmpty() || !m_databases.first()->isInbox()) {
        return engineError(
            EngineErrorCode::ProfileUnusable,
            localizedSyncString(
                "The profile “%1” has no inbox. Restore it from a backup or use another profile.")
                .arg(m_profile.path()));
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

std::optional<Error> EngineNoteLibrary::createDatabase(const QString &name) {
    if (std::optional<Error> error = errorOfName(name)) {
        return error;
    }
    const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (std::optional<Error> error = m_profile.write([&] {
            const std::optional<Error> insertError = insert(UUID, name);
            return insertError ? insertError : NoteLog(m_profile, UUID).setName(name);
        })) {
        return error;
    }
    add(UUID, name);
    return {};
}

std::optional<Error> EngineNoteLibrary::importDatabase(const QString &UUID, const QString &name) {
    if (std::optional<Error> error = insert(UUID, name)) {
        return error;
    }
    add(UUID, name);
    return {};
}

std::optional<Error> EngineNoteLibrary::merge(
    const std::shared_ptr<EngineDatabase> &database, const QList<Transaction> &transactions,
    const std::function<std::optional<Error>()> &changes) {
    const QString name = database->name();
    if (std::optional<Error> error = database->merge(transactions, changes)) {
        return error;
    }
    if (database->name() != name) {
        post(QVDatabaseRenamedNotification, database.get());
    }
    return {};
}

std::optional<Error> EngineNoteLibrary::insert(const QString &UUID, const QString &name) const {
    return m_profile.run(QStringLiteral("INSERT INTO databases (uuid, name) VALUES (?, ?)"),
                         {UUID, ProfileDatabase::text(name)});
}

void EngineNoteLibrary::add(const QString &UUID, const QString &name) {
    const auto database = std::make_shared<EngineDatabase>(m_profile, UUID, name,
                                                           EngineDatabase::Kind::Ordinary, true);
    append(database);
    Q_EMIT knownDatabasesChanged();
    post(QVSyncPluginDidOpenDatabase, database.get());
}

std::optional<Error> EngineNoteLibrary::renameDatabase(
    const std::shared_ptr<NoteDatabase> &database, const QString &name) {
    if (std::optional<Error> error = errorOfName(name)) {
        return error;
    }
    if (std::optional<Error> error = ours(database)->setName(name)) {
        return error;
    }
    post(QVDatabaseRenamedNotification, database.get());
    return {};
}

std::optional<Error> EngineNoteLibrary::openDatabase(
    const std::shared_ptr<NoteDatabase> &database) {
    if (database->isOpen()) {
        return {};
    }
    if (std::optional<Error> error = ours(database)->setOpen(true)) {
        return error;
    }
    post(QVSyncPluginDidOpenDatabase, database.get());
    return {};
}

std::optional<Error> EngineNoteLibrary::closeDatabase(
    const std::shared_ptr<NoteDatabase> &database) {
    if (!database->isOpen()) {
        return {};
    }
    if (std::optional<Error> error = ours(database)->setOpen(false)) {
        return error;
    }
    post(QVSyncPluginDidCloseDatabase, database.get());
    return {};
}

std::shared_ptr<EngineDatabase> EngineNoteLibrary::ours(
    const std::shared_ptr<NoteDatabase> &database) const {
    std::shared_ptr<EngineDatabase> known = m_databaseByUUID.value(database->UUID());
    requireParameter(known == database, "the database belongs to this library",
                     "EngineNoteLibrary::ours", "Engine/Notes/EngineNoteLibrary");
    return known;
}

void EngineNoteLibrary::append(const std::shared_ptr<EngineDatabase> &database) {
    m_databases.append(database);
    m_databaseByUUID.insert(database->UUID(), database);
}
