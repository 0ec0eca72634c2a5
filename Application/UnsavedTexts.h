#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "Application/Interface/NoteDatabase.h"
#include "Platform/Foundation/Expected.h"

class NoteLibrary;

/// Journal of texts that could not be saved, so that they survive the end of the process. A text is
/// a file in the profile folder or, if that cannot be written, in the user's cache or runtime
/// folder; only the user can read it. Calls block until the file is written. Main thread only.
class UnsavedTexts {
public:
    /// `profileFolder` is the folder of the open profile.
    explicit UnsavedTexts(const QString &profileFolder);

    /// Writes `note` of the database `databaseUUID`, in place of an earlier text of that note.
    /// Fails if no folder can be written.
    Expected<void> keep(const QString &databaseUUID, const Note &note) const;
    /// Removes the text of the note `noteUUID`; does nothing if there is none.
    void remove(const QString &noteUUID) const;
    /// Saves all texts in `library` and removes them from the journal. The text of a database that
    /// is not known is saved in the inbox. Returns the titles of the notes that were saved. A text
    /// that cannot be saved stays in the journal, and an error is returned that names its file.
    Expected<QStringList> restore(const NoteLibrary &library) const;

private:
    QStringList files() const;

    /// Where to write, in the order of preference.
    QStringList m_folders;
    /// How the names of the profile's files begin.
    QString m_prefix;
};
