#pragma once

#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <memory>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Notes/HistoryPruning.h"
#include "Engine/Plugin/EngineSyncPlugin.h"
#include "Engine/Profile/BackupSchedule.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/SyncTriggers.h"

/// The whole engine of one profile. A process can have several; EngineClasses makes one of them
/// available to the preference pane. Must be used on the main thread.
class SyncEngine {
public:
    /// Opens no profile yet. The application object must exist.
    SyncEngine();
    /// Cancels the operations of this engine's stores, blocks until they have ended or are
    /// abandoned (see StoreOperations::end()), and closes the profile. Must not be called while a
    /// handler waits for the main thread, nor from within a handler or an event of the engine.
    ~SyncEngine();
    SyncEngine(const SyncEngine &) = delete;
    SyncEngine &operator=(const SyncEngine &) = delete;

    /// Opens the profile in `directory`, see SyncPlugIn::openProfile. `contents` are the initial
    /// contents of a new profile. Must be called at most once successfully. Triggers, backups, the
    /// removal of old versions and the server start only if `use` is Run. Blocks for the disk, and
    /// longer if a profile of an older version is converted or, for Snapshot, copied. A problem
    /// with the protection of the folder's files is logged only.
    Expected<void> openProfile(const QString &directory,
                               FirstContents contents = FirstContents::Welcome,
                               ProfileUse use = ProfileUse::Run);
    /// See SyncPlugIn::verify. A profile must be open.
    VerificationReport verify(VerificationMode mode);
    /// Returns the library; null while no profile is open. Owned by the engine.
    EngineNoteLibrary *library() { return m_isOpen ? &m_library : nullptr; }
    /// Returns the sync plug-in, owned by the engine. Its data is complete once a profile is open.
    EngineSyncPlugin &plugin() { return m_plugin; }
    /// Returns the profile's database, owned by the engine; it is closed before openProfile().
    const ProfileDatabase &profile() const { return m_profile; }
    /// Returns the triggers, which start when a profile is opened.
    SyncTriggers &triggers() { return m_triggers; }
    /// Returns the schedule of the backups, which starts when a profile is opened.
    BackupSchedule &backups() { return m_backups; }

    /// Replaces the database of a profile that is not open by a new one with the inbox and the
    /// former locations, see ProfileRecovery::begin. It has no notes unless the profile has no
    /// sound backup: those that can be read are added then, see ChangeRescue. If the locations or
    /// some changes cannot be read, it succeeds without them, and the user is notified once the
    /// application runs. Blocks for the disk.
    static Expected<void> beginProfile(const QString &directory);
    /// Replaces the database of a profile that is not open by its newest sound backup, to which the
    /// later changes are added that can be read, see ChangeRescue. The user is notified of others
    /// once the application runs. Blocks for the disk.
    static Expected<void> restoreBackup(const QString &directory);

private:
    /// Opens a temporary copy of the profile, so that another process can use the profile itself.
    Expected<void> openSnapshot(const QString &directory, FirstContents contents);
    /// Logs it if the indexes of the profile were rebuilt, and what is damaged in the tables. That
    /// is read again by the next synchronization.
    void reportRebuiltIndexes();
    /// Starts the triggers, which make up for what was missed since the previous run.
    void startTriggers();
    /// Saves the time up to which no schedule was missed. A failure is logged: a schedule may then
    /// be made up that was not missed.
    void saveLastCheck() const;
    /// Returns the inspection of backups. What it finds is read again by the next synchronization
    /// if it is damaged in the profile, too.
    BackupSchedule::Inspection inspection();
    /// Reads everything that the profile contains.
    Expected<void> load();
    /// Installs the translations for the current locale, if there are any.
    void installTranslation();

    QTranslator m_translator;
    /// The folder of the profile, not that of its copy.
    QString m_directory;
    /// Contains the copy of the profile; must be destroyed after the database in it is closed.
    std::unique_ptr<QTemporaryDir> m_snapshotFolder;
    ProfileDatabase m_profile;
    EngineNoteLibrary m_library;
    EngineSyncPlugin m_plugin;
    /// After the objects that it uses.
    SyncTriggers m_triggers;
    BackupSchedule m_backups;
    HistoryPruning m_pruning;
    /// Whether openProfile() has succeeded.
    bool m_isOpen = false;
};
