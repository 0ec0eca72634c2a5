#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "Application/Interface/NoteDatabase.h"
#include "Platform/Foundation/Expected.h"

class NoteLibrary;

/// Journal of texts that are not saved yet or could not be saved, so that they survive the end of
/// the process. A text is a file in the profile folder or, if that cannot be written or no longer
/// contains the profile, in the user's cache or runtime folder; only the user can read it. Calls
/// block for disk access. Must be used on the main thread. A value without state: several objects
/// for one profile see the same texts. Only the process that has the profile open may use it.
class UnsavedTexts {
public:
    /// What restore() has done.
    struct Restored {
        /// Of the notes whose texts are saved.
        QStringList titles;
        /// An error for the user that names each file that was not restored, and each folder that
        /// cannot be read.
        Expected<void> result;
    };

    /// `profileFolder` is the folder of the open profile. Reads and writes nothing.
    explicit UnsavedTexts(const QString &profileFolder);

    /// Writes `note` of the database `databaseUUID`, replacing an earlier text of that note in the
    /// same folder. The text is durable when the call returns. `note` must have a UUID. Fails if no
    /// folder can be written, with an error for the user.
    Expected<void> keep(const QString &databaseUUID, const Note &note) const;
    /// Removes the text of the note `noteUUID` from all folders. Has no effect if there is none. A
    /// file that cannot be removed is restored again at the next start; it is named in the error
    /// for the user.
    Expected<void> remove(const QString &noteUUID) const;
    /// Saves all texts in `library` and removes them from the journal. The text of an unknown
    /// database is saved in the inbox. A text that the database contains already is removed without
    /// saving it again. If the note was changed meanwhile, both edits are kept, see
    /// NoteDatabase::saveNote(). A text that cannot be saved or read does not stop the others: it
    /// stays in the journal for the next call, and neither keep() nor remove() touches it any more.
    /// Must be called once, before new texts are kept.
    Restored restore(const NoteLibrary &library) const;

private:
    /// Returns the paths of the profile's texts in `folder`, of the notes whose digest matches the
    /// pattern `note`. Fails if the folder exists but cannot be read.
    Expected<QStringList> filesIn(const QString &folder, const QString &note) const;

    /// The folders in order of preference.
    QStringList m_folders;
    /// Prefix of the names of the profile's files, derived from the path of its folder. In that
    /// folder, all texts are the profile's.
    QString m_prefix;
};
