#pragma once

#include <functional>

#include "Application/Interface/NoteDatabase.h"
#include "Engine/Notes/OperationTable.h"

/// The notes of one database as a user sees them: what follows from its current operations. A note
/// with conflicting edits shows as the first of these, see Operation::comesBefore, followed by one
/// copy for each of the others.
///
/// Must be used on the main thread; all functions that return Expected block for the profile. Their
/// errors have the code ProfileNotWritten; a failed read never looks like an empty result.
class NoteRows {
public:
    /// Maximum number of edits at one position that are all read for the list of notes, so that a
    /// store cannot exhaust the time of the main thread. Of more edits, about as many are read.
    static constexpr int MostRows = 100;

    /// Returns the revision of a note that shows `operation`.
    static QString revisionOf(const Operation &operation);
    /// Returns whether `UUID` is that of a copy whose own UUID a note has. Such a copy is saved
    /// with another UUID.
    static bool isInBraces(const QString &UUID);

    /// `profile` is not owned and must outlive this object. `database` is the id of the database's
    /// row.
    NoteRows(const ProfileDatabase &profile, qint64 database);

    /// Returns the notes in the order in which they were added. Reads all operations.
    Expected<QList<Note>> notes() const;
    /// See NoteDatabase::rows, rowsAt, hasMoreEdits and completeNote. The error of an edit that is
    /// not there has the code InvalidDatabase.
    Expected<QList<NoteRow>> rows(qint64 from, int count) const;
    Expected<QList<NoteRow>> rowsAt(qint64 position) const;
    Expected<bool> hasMoreEdits(const QString &note, qsizetype count) const;
    Expected<Note> completeNote(const Note &note) const;

    /// Returns the edit that the revision of `note` names, which need not be current, or, if it is
    /// empty, the one that its UUID shows; an empty identifier if none does. Reads the identifiers
    /// of all conflicting edits for the UUID of a copy.
    Expected<OperationId> editOf(const Note &note) const;

private:
    /// An operation, and the UUID of the note that it shows as.
    struct Row {
        QString UUID;
        Operation operation;
        /// See Note::conflict.
        QString conflict;
    };

    /// An operation of a note, without its text, and where it is in the list.
    struct Place {
        Operation operation;
        qint64 position = 0;
        /// The id of its row.
        qint64 id = 0;
    };

    /// Returns whether an operation has this UUID as `note`.
    using HasNote = std::function<Expected<bool>(const QString &UUID)>;

    static Note noteOf(const Row &row);
    /// Returns the rows of `operations`, which must be all of some notes or those that show, in
    /// their order.
    static Expected<QList<Row>> rowsOf(const QList<Operation> &operations, const HasNote &hasNote);
    /// Returns the UUID as which `copy` shows, which no note has.
    static Expected<QString> UUIDOfCopy(const Operation &copy, const HasNote &hasNote);
    /// Returns the operations of notes in the rows of `source`, a table and a condition, at most
    /// `most`, ordered by position and note.
    Expected<QList<Place>> places(const QString &source, const QVariantList &values,
                                  int most) const;
    /// Returns rows from the position `from` on, one at least if there is one. Reads as many as
    /// `count` operations, and the rows of one more position.
    Expected<QList<NoteRow>> nextRows(qint64 from, int count) const;
    /// Returns the rows of `places`; of a position with more than MostRows, the rows of some.
    Expected<QList<NoteRow>> noteRows(const QList<Place> &places) const;
    /// Returns the rows of one position.
    Expected<QList<NoteRow>> noteRows(qint64 position, QList<Place> places) const;
    /// Returns about MostRows of the rows of a position, with two at least of each conflict.
    Expected<QList<NoteRow>> someRowsAt(qint64 position) const;
    /// Returns the notes of a position. O(notes log n), however many edits they have.
    Expected<QStringList> notesAt(qint64 position) const;
    /// Returns about `most` of the edits of a note, with the one that shows first and, if there are
    /// several, another one.
    Expected<QList<Place>> somePlaces(qint64 position, const QString &note, int most) const;
    Expected<bool> hasNote(const QString &UUID) const;
    /// Returns the operation that shows as the note `noteUUID`, or an empty identifier.
    Expected<OperationId> shownAs(const QString &noteUUID) const;
    /// The same for a UUID that no note has. Reads the identifiers of all conflicting edits.
    Expected<OperationId> copyShownAs(const QUuid &UUID) const;

    const ProfileDatabase &m_profile;
    const qint64 m_database;
    const OperationTable m_operations;
};
