#pragma once

#include <QtCore/QString>

/// A profile as an earlier version of Velmora has left it: an inbox and the database "Plans" with
/// notes "0", "1" and so on.
namespace OldProfile {

/// The UUID of the database, and of its first note.
inline const QString UUID = QStringLiteral("11111111-1111-4111-8111-111111111111");
/// When the first note was modified.
inline constexpr qint64 Modified = 5;

/// Writes the file of the profile, which must not exist, in an existing folder. `notes` is the
/// number of notes with the text `text`, and `version` an earlier schema version. Throws
/// std::runtime_error on failure.
void write(const QString &file, int notes, const QString &text, int version = 1);

}  // namespace OldProfile
