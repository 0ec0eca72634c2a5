#pragma once

#include <QtCore/QHash>

#include "Application/Interface/NoteLibrary.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Notes/NoteInspection.h"

class ProfileDatabase;

/// The databases of the profile. Must be used on the main thread; functions that write block for
/// the profile.
///
/// Posts the notifications of Host/Notifications.h to the default notification center, each after
/// the change is durable and the corresponding signal was emitted.
class EngineNoteLibrary : public NoteLibrary {
    Q_OBJECT
public:
    /// `profile` is not owned and must outlive this object.
    explicit EngineNoteLibrary(const ProfileDatabase &profile);

    /// Reads the databases from the open profile. Must be called once, before all other functions.
    /// Returns an error if the profile cannot be read or has no inbox; this object is then
    /// unusable.
    Expected<void> load();

    /// Returns the open databases in the order of `knownDatabases()`.
    QList<std::shared_ptr<QVDatabase>> openDatabases() const;
    /// Returns the database with the local `UUID`, or null. O(1). The inbox is found by its own
    /// UUID, not by InboxUUID.
    std::shared_ptr<NoteDatabase> databaseForUUID(const QString &UUID) const;
    /// Returns the database that stores name `UUID`, which is InboxUUID for the inbox, or null.
    std::shared_ptr<EngineDatabase> synchronizedDatabase(const QString &UUID) const;

    /// Passes what was found to be damaged to EngineDatabase::addDamaged.
    void addDamage(const NoteInspection::Damage &damage);
    /// Creates a local database for one that exists in a store. It has no operations yet. `UUID`
    /// must be valid and not be in use. The database is open afterwards. A deleted database of this
    /// UUID is restored instead, if it still can be. If it cannot, it is erased first, for at most
    /// about `duration`: returns false, without having created the database, if something is left
    /// of it. The function must then be called again, later, so that the main thread can do other
    /// things.
    Expected<bool> importDatabase(
        const QString &UUID, const QString &name,
        std::chrono::milliseconds duration = SteppedDeletion::StepDuration);
    /// Calls EngineDatabase::merge for `database`, and posts QVDatabaseRenamedNotification if the
    /// name has changed.
    Expected<void> merge(const std::shared_ptr<EngineDatabase> &database, const Merge &merge,
                         const std::function<Expected<void>()> &changes);

    /// Calls `changes` in a transaction, after which the deleted database can no longer be
    /// restored. Its rows must then be erased with DeletedDatabase::eraseSome().
    Expected<void> giveUpDeleted(const QString &UUID,
                                 const std::function<Expected<void>()> &changes);

    /// For the contracts of these functions see NoteLibrary.
    QList<std::shared_ptr<NoteDatabase>> knownDatabases() const override;
    std::shared_ptr<NoteDatabase> inbox() const override;
    Expected<void> createDatabase(const QString &name) override;
    Expected<void> renameDatabase(const std::shared_ptr<NoteDatabase> &database,
                                  const QString &name) override;
    Expected<void> openDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    Expected<void> closeDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    Expected<void> deleteDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    QList<std::shared_ptr<NoteDatabase>> deletedDatabases() const override;
    Expected<void> restoreDatabase(const std::shared_ptr<NoteDatabase> &database) override;
    Expected<HistoryLimits> historyLimits() const override;
    Expected<qint64> countOfVersionsBeyond(const HistoryLimits &limits) const override;
    Expected<void> setHistoryLimits(const HistoryLimits &limits) override;

Q_SIGNALS:
    /// Emitted after the limits for replaced and deleted notes were changed. What exceeds them
    /// remains to be removed, see NoteHistory::prune.
    void historyLimitsChanged();
    /// Emitted after the database was deleted or restored, before that is announced otherwise.
    void databaseDeleted(const QString &UUID);
    void databaseRestored(const QString &UUID);

private:
    /// Returns `database` as this library's own; another library's is a programming error.
    std::shared_ptr<EngineDatabase> own(const std::shared_ptr<NoteDatabase> &database) const;
    /// Adds the database that was inserted into the profile, emits `knownDatabasesChanged`, and
    /// posts that it was opened.
    void add(const EngineDatabase::Row &row);
    void append(const EngineDatabase::Row &row);
    /// Returns the deleted database with this UUID, or null.
    std::shared_ptr<EngineDatabase> deletedDatabase(const QString &UUID) const;

    const ProfileDatabase &m_profile;
    QList<std::shared_ptr<EngineDatabase>> m_databases;
    QHash<QString, std::shared_ptr<EngineDatabase>> m_databaseByUUID;
    /// Those that were deleted since the profile was opened.
    QList<std::shared_ptr<EngineDatabase>> m_deleted;
};
