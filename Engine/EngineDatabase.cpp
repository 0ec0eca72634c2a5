#include "Engine/EngineDatabase.h"

#include <QtCore/QUuid>

#include "Engine/ProfileDatabase.h"
#include "Platform/KeyValue/KeyValue.h"

EngineDatabase::EngineDatabase(const ProfileDatabase &profile, const QString &UUID,
                               const QString &name, Kind kind, bool isOpen)
    : m_profile(profile), m_UUID(UUID), m_name(name), m_kind(kind), m_isOpen(isOpen) {}

QList<Note> EngineDatabase::notes() const {
    QSqlQuery rows = m_profile.prepare(QStringLiteral(
        "SELECT uuid, title, text, modified FROM notes WHERE database_uuid = ? ORDER BY id"));
    rows.addBindValue(m_UUID);
    rows.exec();
    QList<Note> notes;
    while (rows.next()) {
        const QVariant modified = rows.value(3);
        notes.append({rows.value(0).toString(), rows.value(1).toString(), rows.value(2).toString(),
                      modified.isNull() ? QDateTime()
                                        : QDateTime::fromMSecsSinceEpoch(modified.toLongLong())});
    }
    return notes;
}

std::optional<Error> EngineDatabase::saveNote(Note &note) {
    const QString UUID =
        note.UUID.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : note.UUID;
    const QVariant modified =
        note.modified.isValid() ? QVariant(note.modified.toMSecsSinceEpoch()) : QVariant();
    if (std::optional<Error> error = m_profile.run(
            QStringLiteral("INSERT INTO notes (database_uuid, uuid, title, text, modified)"
                           " VALUES (?, ?, ?, ?, ?)"
                           " ON CONFLICT (database_uuid, uuid) DO UPDATE SET"
                           " title = excluded.title, text = excluded.text,"
                           " modified = excluded.modified"),
            {m_UUID, UUID, ProfileDatabase::text(note.title), ProfileDatabase::text(note.text),
             modified})) {
        return error;
    }
    note.UUID = UUID;
    Q_EMIT notesChanged();
    return {};
}

std::optional<Error> EngineDatabase::removeNote(const QString &noteUUID) {
    if (std::optional<Error> error =
            m_profile.run(QStringLiteral("DELETE FROM notes WHERE database_uuid = ? AND uuid = ?"),
                          {m_UUID, noteUUID})) {
        return error;
    }
    Q_EMIT notesChanged();
    return {};
}

std::optional<Error> EngineDatabase::setName(const QString &name) {
    if (std::optional<Error> error = m_profile.run(
            QStringLiteral("UPDATE databases SET name = ? WHERE uuid = ?"), {name, m_UUID})) {
        return error;
    }
    m_name = name;
    KeyValue::announce<&QVDatabase::nameChanged>(this);
    return {};
}

std::optional<Error> EngineDatabase::setOpen(bool isOpen) {
    if (std::optional<Error> error = m_profile.run(
            QStringLiteral("UPDATE databases SET is_open = ? WHERE uuid = ?"), {isOpen, m_UUID})) {
        return error;
    }
    m_isOpen = isOpen;
    KeyValue::announce<&NoteDatabase::openChanged>(this);
    return {};
}
