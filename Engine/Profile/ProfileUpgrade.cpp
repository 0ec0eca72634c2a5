#include "Engine/Profile/ProfileUpgrade.h"

#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"

namespace {

std::optional<Error> takeOverDatabase(const ProfileDatabase &profile, const QString &UUID,
                                      const QString &name, bool isInbox) {
    const NoteLog log(profile, UUID);
    if (!isInbox) {
        if (std::optional<Error> error = log.setName(name)) {
            return error;
        }
    }
    QSqlQuery rows = profile.prepare(QStringLiteral(
        "SELECT uuid, title, text, modified FROM old_notes WHERE database_uuid = ? ORDER BY id"));
    rows.addBindValue(UUID);
    if (!rows.exec()) {
        return profile.errorOf(rows);
    }
    while (rows.next()) {
        const QString noteUUID = rows.value(0).toString();
        const QVariant modified = rows.value(3);
        Note note{Operation::isUUID(noteUUID) ? noteUUID : QString(), rows.value(1).toString(),
                  rows.value(2).toString(),
                  modified.isNull() ? QDateTime()
                                    : QDateTime::fromMSecsSinceEpoch(modified.toLongLong())};
        if (std::optional<Error> error = log.save(note)) {
            return error;
        }
    }
    return {};
}

}  // namespace

std::optional<Error> ProfileUpgrade::run(const ProfileDatabase &profile,
                                         const std::function<std::optional<Error>()> &makeTables) {
    for (const char *statement :
         {"ALTER TABLE notes RENAME TO old_notes",
          "ALTER TABLE databases ADD COLUMN sent INTEGER NOT NULL DEFAULT 0"}) {
        if (std::optional<Error> error = profile.run(QString::fromLatin1(statement))) {
            return error;
        }
    }
    if (std::optional<Error> error = makeTables()) {
        return error;
    }
    QSqlQuery rows = profile.prepare(QStringLiteral("SELECT uuid, name, is_inbox FROM databases"));
    if (!rows.exec()) {
        return profile.errorOf(rows);
    }
    while (rows.next()) {
        if (std::optional<Error> error =
                takeOverDatabase(profile, rows.value(0).toString(), rows.value(1).toString(),
                                 rows.value(2).toBool())) {
            return error;
        }
    }
    rows.finish();
    return profile.run(QStringLiteral("DROP TABLE old_notes"));
}
