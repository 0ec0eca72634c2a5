#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "Application/Interface/NoteDatabase.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/FileIdentity.h"

class NoteLibrary;

/// Journal of texts that are not saved yet or could not be saved, so that they survive the end of
/// the process. A text is a file in the profile folder or, if that cannot be written or no longer
/// contains the profile, in the user's cache folder; only the user can read it. If neither can be
/// written, the reserve is removed, a file in the profile folder that only takes up room for this;
/// the last resort is the runtime folder, which does not outlive the session. Calls block for disk
/// access. Must be used on the main thread. A value without state: several objects for one profile
/// see the same texts. Only the process that has the profile open may use it.
class UnsavedTexts {
public:
    /// Bytes of the file "reserve" in the profile folder: room for a text of 7 MiB and for one as
    /// long that replaces it in the journal.
    static constexpr qint64 ReserveSize = 16LL << 20;

    /// What restore() has done.
    struct Restored {
        /// Of the notes whose texts are saved.
        QStringList titles;
        /// An error for the user that names each file that was not restored, and each folder that
        /// cannot be read.
        Expected<void> result;
    };

    /// `profileFolder` is the folder of the open profile, and `inboxUUID` the UUID of its inbox.
    /// Writes nothing.
    UnsavedTexts(const QString &profileFolder, const QString &inboxUUID);

    /// Writes `note` of the database `databaseUUID`, replacing an earlier text of that note in the
    /// same folder. The text is durable when the call returns. `note` must have a UUID. Fails if no
    /// folder can be written, with an error for the user. Uses the reserve if the disks are full.
    Expected<void> keep(const QString &databaseUUID, const Note &note) const;
    /// Removes the text of the note `noteUUID` from all folders. Has no effect if there is none. A
    /// file that cannot be removed is restored again at the next start; it is named in the error
    /// for the user. Makes the reserve again if it was used and there is room.
    Expected<void> remove(const QString &noteUUID) const;
    /// Saves all texts in `library` and removes them from the journal. The text of an unknown
    /// database is saved in the inbox. A text that the database contains already is removed without
    /// saving it again. If the note was changed meanwhile, both edits are kept, see
    /// NoteDatabase::saveNote(). A text that cannot be saved or read does not stop the others: it
    /// stays in the journal for the next call, and neither keep() nor remove() touches it any more.
    /// Makes the reserve if there is room. Must be called once, before new texts are kept.
    Restored restore(const NoteLibrary &library) const;

private:
    /// Returns whether the profile folder still is the one of the open profile. Without the
    /// database, files in it would prevent a new profile there. Fails if it cannot be reached.
    Expected<bool> isProfileThere() const;
    /// Whether a text can be kept in `folder`.
    bool isUsable(const QString &folder) const;
    /// Removes the reserve. Returns whether that has made room.
    bool useReserve() const;
    /// Has no effect if the reserve exists or there is little room.
    void makeReserve() const;
    /// Returns the paths of the profile's texts in `folder`, of the notes whose digest matches the
    /// pattern `note`. Fails if the folder cannot be read.
    Expected<QStringList> filesIn(const QString &folder, const QString &note) const;

    /// The folders that outlive the session, in order of preference.
    QStringList m_durableFolders;
    /// All folders in order of preference.
    QStringList m_folders;
    QString m_database;
    /// Of the database, when this object was made.
    Expected<std::optional<FileIdentity>> m_identity;
    QString m_reserve;
    /// Parts of the names of the profile's files. In its folder, all texts are the profile's.
    /// Elsewhere one part is enough: the folder may be moved, and get another profile.
    struct Digests {
        /// Of the path of the profile's folder.
        QString folder;
        /// Of the UUID of the inbox.
        QString profile;
    };
    Digests m_digests;
};
