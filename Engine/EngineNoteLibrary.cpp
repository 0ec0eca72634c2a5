#include "Engine/EngineNoteLibrary.h"

#include <QtCore/QUuid>

#include "Engine/EngineError.h"
#include "Engine/ProfileDatabase.h"
#include "Host/Notifications.h"
#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {
Error nameMissing() {
    return engineError(EngineErrorCode::InvalidName,
                       localizedSyncString("A database needs a name."));
}
}  // namespace

std::optional<Error> EngineNoteLibrary::load() {
    return m_profile->transaction([this] {
        return m_profile->select(
            QStringLiteral("SELECT uuid, name, is_inbox, is_open FROM databases ORDER BY is_inbox "
                           "DESC, position"),
            {}, [this](const QSqlQuery &row) {
                m_databases.append(std::make_shared<EngineNoteDatabase>(
                    m_profile, row.value(0).toString(), row.value(1).toString(),
                    row.value(2).toBool(), row.value(3).toBool()));
            });
    });
}

QList<std::shared_ptr<QVDatabase>> EngineNoteLibrary::openDatabases() const {
    QList<std::shared_ptr<QVDatabase>> open;
    for (const auto &database : m_databases) {
        if (database->isOpen()) {
            open.append(database);
        }
    }
    return open;
}

std::shared_ptr<EngineNoteDatabase> EngineNoteLibrary::databaseForUUID(const QString &UUID) const {
    const auto found = std::find_if(m_databases.begin(), m_databases.end(),
                                    [&](const auto &database) { return database->UUID() == UUID; });
    return found == m_databases.end() ? nullptr : *found;
}

QList<std::shared_ptr<NoteDatabase>> EngineNoteLibrary::knownDatabases() const {
    return {m_databases.begin(), m_databases.end()};
}

std::shared_ptr<NoteDatabase> EngineNoteLibrary::inbox() const {
    return m_databases.isEmpty() ? nullptr : m_databases.first();
}

std::optional<Error> EngineNoteLibrary::createDatabase(const QString &name) {
    if (name.trimmed().isEmpty()) {
        return nameMissing();
    }
    const QString UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(QStringLiteral("INSERT INTO databases VALUES (?, ?, ?, 0, 1)"),
                                  {UUID, name.trimmed(), m_databases.size()});
    });
    if (error) {
        return error;
    }
    const auto database =
        std::make_shared<EngineNoteDatabase>(m_profile, UUID, name.trimmed(), false, true);
    m_databases.append(database);
    Q_EMIT knownDatabasesChanged();
    NotificationCenter::defaultCenter().post(QVSyncPluginDidOpenDatabase, database.get());
    return std::nullopt;
}

std::optional<Error> EngineNoteLibrary::renameDatabase(
    const std::shared_ptr<NoteDatabase> &database, const QString &name) {
    if (name.trimmed().isEmpty()) {
        return nameMissing();
    }
    const auto ours = databaseForUUID(database->UUID());
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(QStringLiteral("UPDATE databases SET name = ? WHERE uuid = ?"),
                                  {name.trimmed(), ours->UUID()});
    });
    if (!error) {
        ours->setName(name.trimmed());
        NotificationCenter::defaultCenter().post(QVDatabaseRenamedNotification, ours.get());
    }
    return error;
}

std::optional<Error> EngineNoteLibrary::openDatabase(
    const std::shared_ptr<NoteDatabase> &database) {
    return setOpen(database, true);
}

std::optional<Error> EngineNoteLibrary::closeDatabase(
    const std::shared_ptr<NoteDatabase> &database) {
    return setOpen(database, false);
}

std::optional<Error> EngineNoteLibrary::setOpen(const std::shared_ptr<NoteDatabase> &database,
                                                bool open) {
    const auto ours = databaseForUUID(database->UUID());
    if (ours->isOpen() == open) {
        return std::nullopt;
    }
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(QStringLiteral("UPDATE databases SET is_open = ? WHERE uuid = ?"),
                                  {open, ours->UUID()});
    });
    if (!error) {
        ours->setOpen(open);
        NotificationCenter::defaultCenter().post(
            open ? QVSyncPluginDidOpenDatabase : QVSyncPluginDidCloseDatabase, ours.get());
    }
    return error;
}
