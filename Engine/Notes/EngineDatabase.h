#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <chrono>
#include <functional>

#include "Engine/Notes/NoteInspection.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Notes/NoteRows.h"

/// What a synchronization merges into a database.
struct Merge {
    QList<Operation> operations = {};
    /// Does not contain what the operations supersede unless it is superseded now.
    QList<OperationId> superseded = {};
    /// The title of the location that they come from.
    QString place = {};
    /// Operations of notes that must stay, even if what follows supersedes them.
    QList<Operation> operationsToKeep = {};
    /// The identifiers that this and what follows supersede. Only used if there are operations to
    /// keep.
    QSet<OperationId> supersededByAll = {};
};

/// A database of the profile. Does not cache notes: they are read from the profile by each call.
/// Must be used on the main thread; all functions that read or write the profile block for it.
class EngineDatabase : public NoteDatabase {
    Q_OBJECT
public:
    /// A profile has exactly one inbox, whose name stays on its computer.
    enum class Kind { Inbox, Ordinary };

    /// The columns of a database's row in the profile.
    struct Row {
        qint64 id = 0;
        QString UUID;
        QString name;
        Kind kind = Kind::Ordinary;
        bool isOpen = true;
        /// See NoteLog.
        qint64 lastOperationAtOpening = 0;
    };

    /// `profile` is not owned and must outlive this object; it must contain `row`. Reads nothing;
    /// the library creates one object for each row.
    EngineDatabase(const ProfileDatabase &profile, const Row &row);

    QString UUID() const override { return m_row.UUID; }
    QString name() const override { return m_row.name; }
    bool isInbox() const override { return m_row.kind == Kind::Inbox; }
    bool isOpen() const override { return m_row.isOpen; }
    /// For the contracts of these functions see NoteDatabase. The ones that write emit
    /// `notesChanged` once before they return successfully, and remove versions that exceed the
    /// limits of the history in the same transaction.
    Expected<QList<Note>> notes() const override;
    Expected<QList<NoteRow>> rows(qint64 from, int count) const override;
    Expected<QList<NoteRow>> rowsAt(qint64 position) const override;
    Expected<Note> completeNote(const Note &note) const override;
    Expected<qint64> countOfNotes() const override { return m_log.countOfNotes(); }
    Expected<bool> hasMoreEdits(const QString &UUID, qsizetype count) const override;
    Expected<qint64> countOfConflicts() const override;
    Expected<void> saveNote(Note &note) override;
    Expected<bool> removeNote(const Note &note) override;
    Expected<void> resolveConflict(Note &kept, const Note &removed) override;
    Expected<QList<NoteVersion>> deletedNotes(const VersionsPart &part = {}) const override;
    Expected<QList<NoteVersion>> earlierVersions(const Note &note,
                                                 const VersionsPart &part = {}) const override;
    Expected<Note> noteOfVersion(const NoteVersion &version) const override;

    /// Returns the operations of the database. The reference is valid as long as this object.
    const NoteLog &log() const { return m_log; }

    /// Adds operations that were found to be damaged, perhaps in a copy of the profile. The next
    /// synchronization reads those whose contents are damaged again if it finds them in its store.
    void addDamaged(const QList<NoteInspection::DamagedOperation> &operations);
    /// Returns the operations that were added and not merged since. They may have been superseded.
    const QSet<OperationId> &damaged() const { return m_damaged; }

    /// See NoteLog::removeDamagedCopy. Emits `notesChanged` if it is removed.
    Expected<bool> removeDamagedCopy(const Operation &damaged);

    /// See NoteLog::eraseReturned. Emits `notesChanged`.
    Expected<void> eraseReturned(const QList<OperationId> &returned);

    /// Returns whether the next synchronization with the store `store` must compare everything,
    /// instead of trusting what the profile has recorded as unwritten. That is so if none has since
    /// this object was created, or within the validity of the last comparison.
    bool isComparisonDue(const QString &store) const;
    /// Records that a synchronization with the store `store` has compared everything.
    void setCompared(const QString &store,
                     std::chrono::milliseconds validity = std::chrono::days(1));
    /// Makes the next synchronization with the store `store` compare everything.
    void setComparisonDue(const QString &store) { m_comparisons.remove(store); }

    /// Renames the database and emits `nameChanged`. The name must be valid, see
    /// Operation::isName(). Called by the library only, which posts the notification.
    Expected<void> setName(const QString &name);
    /// Opens or closes the database and emits `openChanged`, also if it is in that state already.
    /// Called by the library only, which posts the notification.
    Expected<void> setOpen(bool isOpen);
    /// Merges `merge` and calls `changes`, in one transaction of the profile, then emits
    /// `notesChanged`, and `nameChanged` if the name is another one. An error has no effect.
    /// After more than 50 changes, the merges of the next 100 ms share one later `notesChanged`, so
    /// that a merge in many steps leaves the receivers time. `changes` must not be empty; it is
    /// called once, within this call, unless merging fails before.
    Expected<void> merge(const Merge &merge, const std::function<Expected<void>()> &changes);

private:
    /// The name is also stored in the row, since that of the inbox, which is in the user's
    /// language, is not synchronized.
    Expected<void> writeName(const QString &name) const;
    /// Merges within the caller's transaction and returns the resulting name of the database.
    Expected<QString> mergeLog(const Merge &merge) const;
    /// Writes within a transaction, and removes from the history what exceeds its limits.
    Expected<void> write(const std::function<Expected<void>()> &changes) const;

    /// Emit `notesChanged` for what merges have changed, now or, after many changes, later.
    void announceMerge();
    void announceMerged();
    /// Emits `notesChanged` for what was changed otherwise.
    void announceNotes();

    const ProfileDatabase &m_profile;
    const NoteLog m_log;
    const NoteRows m_rows;
    Row m_row;
    /// Runs while changes by merges are not announced, and the positions of these changes.
    QTimer m_pause;
    QSet<qint64> m_merged;
    QSet<OperationId> m_damaged;
    /// By store: until when it need not be compared again.
    QHash<QString, QDeadlineTimer> m_comparisons;
};
