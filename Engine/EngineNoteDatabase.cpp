#include "Engine/EngineNoteDatabase.h"

#include <QtCore/QUuid>

#include "Engine/ProfileDatabase.h"
#include "Platform/KeyValue/KeyValue.h"

EngineNoteDatabase::EngineNoteDatabase(ProfileDatabase *profile, const QString &UUID,
                                       const QString &name, bool isInbox, bool isOpen)
    : m_profile(profile), m_UUID(UUID), m_name(name), m_isInbox(isInbox), m_isOpen(isOpen) {}

QList<Note> EngineNoteDatabase::notes() const {
    QList<Note> notes;
    m_profile->select(
        QStringLiteral("SELECT uuid, title, text, modified FROM notes WHERE database_uuid = ? "
                       "ORDER BY position"),
        {m_UUID}, [&](const QSqlQuery &row) {
            notes.append({row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
                          QDateTime::fromString(row.value(3).toString(), Qt::ISODateWithMs)});
        });
    return notes;
}

std::optional<Error> EngineNoteDatabase::saveNote(Note &note) {
    Note saved = note;
    if (saved.UUID.isEmpty()) {
        saved.UUID = QUuid::createUuid().toString(QUuid::WithoutBraces);
    }
    saved.modified = QDateTime::currentDateTimeUtc();
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(
            QStringLiteral(
                "INSERT INTO notes (uuid, database_uuid, position, title, text, modified) VALUES "
                "(?, ?, "
                "(SELECT coalesce(max(position), 0) + 1 FROM notes WHERE database_uuid = ?), ?, ?, "
                "?) "
                "ON CONFLICT (uuid) DO UPDATE SET title = excluded.title, text = excluded.text, "
                "modified = excluded.modified WHERE database_uuid = excluded.database_uuid"),
            {saved.UUID, m_UUID, m_UUID, saved.title.isNull() ? QStringLiteral("") : saved.title,
             saved.text.isNull() ? QStringLiteral("") : saved.text,
             saved.modified.toString(Qt::ISODateWithMs)});
    });
    if (!error) {
        note = saved;
        Q_EMIT notesChanged();
    }
    return error;
}

std::optional<Error> EngineNoteDatabase::removeNote(const QString &noteUUID) {
    const auto error = m_profile->transaction([&] {
        return m_profile->execute(
            QStringLiteral("DELETE FROM notes WHERE uuid = ? AND database_uuid = ?"),
            {noteUUID, m_UUID});
    });
    if (!error) {
        Q_EMIT notesChanged();
    }
    return error;
}

void EngineNoteDatabase::setName(const QString &name) {
    m_name = name;
    KeyValue::announce<&EngineNoteDatabase::nameChanged>(this);
}

void EngineNoteDatabase::setOpen(bool open) {
    m_isOpen = open;
    KeyValue::announce<&EngineNoteDatabase::openChanged>(this);
}
