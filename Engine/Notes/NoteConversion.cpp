#include "Engine/Notes/NoteConversion.h"

#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

struct OldDatabase {
    qint64 id = 0;
    QString UUID;
    QString name;
    bool isInbox = false;
};

Expected<QList<OldDatabase>> oldDatabases(const ProfileDatabase &profile) {
    QList<OldDatabase> databases;
    const Expected<void> done =
        profile.read(QStringLiteral("SELECT id, uuid, name, is_inbox FROM databases"), {},
                     [&](const QSqlQuery &row) {
                         databases.append({row.value(0).toLongLong(), row.value(1).toString(),
                                           row.value(2).toString(), row.value(3).toBool()});
                     });
    if (!done) {
        return failure(done.error());
    }
    return databases;
}

Expected<QList<Note>> oldNotes(const ProfileDatabase &profile, const QString &databaseUUID) {
    QList<Note> notes;
    const Expected<void> done = profile.read(
        QStringLiteral("SELECT uuid, CAST(title AS BLOB), CAST(text AS BLOB), modified"
                       " FROM old_notes WHERE database_uuid = ? ORDER BY id"),
        {databaseUUID}, [&](const QSqlQuery &row) {
            const QString UUID = row.value(0).toString();
            const QVariant modified = row.value(3);
            notes.append(
                {Operation::isUUID(UUID) ? UUID : QString(),
                 ProfileDatabase::exactText(row.value(1)), ProfileDatabase::exactText(row.value(2)),
                 modified.isNull() ? QDateTime()
                                   : QDateTime::fromMSecsSinceEpoch(modified.toLongLong())});
        });
    if (!done) {
        return failure(done.error());
    }
    return notes;
}

Expected<void> convert(const ProfileDatabase &profile, const OldDatabase &database) {
    const NoteLog log(profile, database.id);
    if (!database.isInbox) {
        if (Expected<void> named = log.setName(database.name); !named) {
            return named;
        }
    }
    Expected<QList<Note>> notes = oldNotes(profile, database.UUID);
    if (!notes) {
        return failure(notes.error());
    }
    for (Note &note : *notes) {
        if (Expected<void> saved = log.save(note); !saved) {
            return saved;
        }
    }
    return {};
}

}  // namespace

Expected<void> convertOldNotes(const ProfileDatabase &profile) {
    const Expected<QList<OldDatabase>> databases = oldDatabases(profile);
    if (!databases) {
        return failure(databases.error());
    }
    for (const OldDatabase &database : *databases) {
        if (Expected<void> converted = convert(profile, database); !converted) {
            return converted;
        }
    }
    return {};
}
