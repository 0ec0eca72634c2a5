#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QSet>
#include <limits>

#include "Application/Interface/InterfaceExport.h"
#include "Host/QVDatabase.h"
#include "Platform/Foundation/Expected.h"

/// One note. A value.
struct Note {
    /// Identifies the note on all computers; empty for one that was never saved.
    QString UUID = {};
    QString title = {};
    QString text = {};
    /// Set by the caller of saveNote(): when the user has changed the note.
    QDateTime modified = {};
    /// Identifies the edit that this note shows; empty for a note that was never saved.
    QString revision = {};
    /// The UUID as which the first of several conflicting edits shows; the same for all of these
    /// edits, and empty if the note has no others.
    QString conflict = {};
    bool operator==(const Note &) const = default;
};

/// The revision of a note that is saved beside all edits that it may have.
inline const QString NoRevision = QStringLiteral("-");

/// A row of the list of notes. A value.
struct NoteRow {
    /// The note without its text.
    Note note;
    /// The place in the list: rows are ordered by it. All conflicting edits of a note have one
    /// position; a few other notes may have the same. It does not change as long as the note
    /// exists.
    qint64 position = 0;
    bool operator==(const NoteRow &) const = default;
};

/// A note as it was before it was replaced or deleted. A value, without the text.
struct NoteVersion {
    /// Identifies the version in the profile of this computer.
    qint64 identifier = 0;
    /// The UUID of the note.
    QString noteUUID;
    /// The title, cut to 200 characters.
    QString title;
    QDateTime modified;
    /// When it was replaced or deleted, by the clock of this computer.
    QDateTime ended;
    /// The title of the location whose synchronization replaced or deleted it; empty if the user
    /// did on this computer.
    QString place;
};

/// A part of a list of versions. A value.
struct VersionsPart {
    /// The identifier of the version behind which the part begins; the default begins with the
    /// first one.
    qint64 before = std::numeric_limits<qint64>::max();
    /// The largest number of versions.
    int count = std::numeric_limits<int>::max();
};

/// A database with its notes, as the application edits it. Must be used on the main thread. A call
/// that returns an error has no effect; otherwise the change is durable when the call returns.
class INTERFACE_EXPORT NoteDatabase : public QVDatabase {
    Q_OBJECT
    Q_PROPERTY(bool open READ isOpen NOTIFY openChanged)
public:
    ~NoteDatabase() override;

    /// Returns whether this is the inbox, which every profile has once. Constant.
    virtual bool isInbox() const = 0;
    /// Returns whether the database is open. A closed one can be read and written too, but is not
    /// shown by the pane.
    virtual bool isOpen() const = 0;
    /// Returns the notes in the order in which they were added, or an error if they cannot be read.
    /// A note that was edited in two places at once appears once for each edit; all but one of
    /// these have UUIDs of their own and say so in their titles.
    virtual Expected<QList<Note>> notes() const = 0;
    /// Returns rows of the list of notes(), beginning with those of the position `from`: at least
    /// `count` if there are as many, and the rows of each position as rowsAt() returns them. Takes
    /// time in proportion to `count`.
    virtual Expected<QList<NoteRow>> rows(qint64 from, int count) const = 0;
    /// Returns the rows of the position `position`; none if it was removed. If these would be very
    /// many, only some of the conflicting edits have rows: for each note the one that shows as the
    /// note, and at least one other. The others get rows as these are removed or resolved.
    virtual Expected<QList<NoteRow>> rowsAt(qint64 position) const = 0;
    /// Returns the edit that the revision of `note` names, shown as `note`, with its text. Fails if
    /// the edit was replaced or removed meanwhile.
    virtual Expected<Note> completeNote(const Note &note) const = 0;
    /// Returns the number of notes; conflicting edits of a note count as one. Counts them: O(n).
    virtual Expected<qint64> countOfNotes() const = 0;
    /// Returns the number of notes that have conflicting edits.
    virtual Expected<qint64> countOfConflicts() const = 0;
    /// Adds `note` or replaces the edit that its revision names, and updates `note.UUID` and
    /// `note.revision`. An empty UUID is replaced by a new one. An empty revision stands for the
    /// edit that the UUID shows now, NoRevision for none. If another computer has replaced the edit
    /// meanwhile, both edits are kept.
    virtual Expected<void> saveNote(Note &note) = 0;
    /// Removes the edit of `note` that its revision names; an empty revision stands for the edit
    /// that the UUID shows now. If that edit was replaced meanwhile, or is not there, nothing is
    /// removed: an edit that the caller has not seen survives. Returns whether it was removed.
    virtual Expected<bool> removeNote(const Note &note) = 0;
    /// Replaces two conflicting edits of one note, those that the revisions of `kept` and `removed`
    /// name, by a new edit with the contents of `kept`, and updates `kept.revision`. Equal
    /// decisions on several computers are one edit; different ones conflict, so that no text is
    /// lost. Returns an error if the two do not conflict, for example because one of them was
    /// replaced or removed meanwhile.
    virtual Expected<void> resolveConflict(Note &kept, const Note &removed) = 0;

    /// Returns a part of the notes that were deleted, here or by a synchronization, as they were
    /// last; the one deleted last comes first. Notes that the profile no longer keeps are not among
    /// them, see NoteLibrary::historyLimits.
    virtual Expected<QList<NoteVersion>> deletedNotes(const VersionsPart &part = {}) const = 0;
    /// Returns a part of the earlier versions of the note with the UUID of `note` and, if that
    /// shows one of several conflicting edits, of the note `note.conflict`; the one replaced last
    /// first. Takes time in proportion to the part.
    virtual Expected<QList<NoteVersion>> earlierVersions(const Note &note,
                                                         const VersionsPart &part = {}) const = 0;
    /// Returns the complete note of `version`, with an empty revision, so that saving it restores
    /// it as a new edit. Fails if the version is no longer kept.
    virtual Expected<Note> noteOfVersion(const NoteVersion &version) const = 0;
    /// Returns whether the note `UUID` has more than `count` edits, which conflict.
    virtual Expected<bool> hasMoreEdits(const QString &UUID, qsizetype count) const = 0;

Q_SIGNALS:
    /// Emitted after the database was opened or closed.
    void openChanged();
    /// Emitted after notes were added, changed or removed, here or by a synchronization.
    /// `positions` are those of the rows that may have changed.
    void notesChanged(const QSet<qint64> &positions);
};
