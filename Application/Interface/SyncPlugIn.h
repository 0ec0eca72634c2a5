#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QtPlugin>
#include <optional>

#include "Application/Interface/FirstContents.h"
#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/VerificationReport.h"
#include "Platform/Foundation/Expected.h"

/// What a profile is opened for.
enum class ProfileUse {
    /// Exclusively, with scheduled synchronizations and the direct-connection server.
    Run,
    /// Exclusively. No synchronization and no server is started.
    Edit,
    /// A private copy, also beside a process that uses the profile. No synchronization and no
    /// server is started; changes are discarded.
    Snapshot,
};

/// How a damaged profile is replaced. The damaged files are set aside, not deleted.
enum class ProfileReplacement {
    /// By the newest backup that is sound, with the later changes of notes that can be read.
    Backup,
    /// By a profile with, as far as they can be read, the former locations. It has no notes unless
    /// there is no sound backup: it has those that can be read then.
    Empty,
};

/// What SyncPlugIn::verify does with what it finds.
enum class VerificationMode {
    /// Changes nothing.
    Report,
    /// Synchronizes with every store, and repairs what is damaged there.
    Repair,
};

/// The root object of the sync plug-in, as the application loads it. It registers the host classes
/// until closeProfile() is called. Must be used on the main thread.
class INTERFACE_EXPORT SyncPlugIn {
public:
    virtual ~SyncPlugIn();

    /// Returns whether openProfile() would begin a new profile in the folder `directory`: it does
    /// not exist or is empty, apart from a lock file. Fails if the folder cannot be read. Needs no
    /// open profile; blocks for the disk.
    virtual Expected<bool> isUnused(const QString &directory) const = 0;
    /// Opens the profile in the folder `directory`. A folder that does not exist or is empty
    /// becomes a new profile with `contents`. Must be called after NSApp() is set, and not again
    /// once it has succeeded. A failure leaves the folder as it was; the error names what is wrong
    /// and where. If another process uses the profile, the error is `isProfileInUse`, unless `use`
    /// is Snapshot.
    virtual Expected<void> openProfile(const QString &directory, ProfileUse use,
                                       FirstContents contents) = 0;
    /// Changes the setting QVSyncPlugin::usesSandboxedAccess of the open profile.
    virtual Expected<void> setUsesSandboxedAccess(bool usesSandboxedAccess) = 0;
    /// Returns whether `error` says that another process uses the profile.
    virtual bool isProfileInUse(const Error &error) const = 0;
    /// Returns whether `error` says that the profile is damaged or missing.
    virtual bool isProfileDamaged(const Error &error) const = 0;
    /// Returns whether the profile can be replaced after the error `error` of openProfile(): it is
    /// damaged or missing, or the disk reports an error where it is read.
    virtual bool canReplaceProfile(const Error &error) const = 0;
    /// Returns the day of the newest backup of the profile in the folder `directory` that is sound,
    /// or std::nullopt. Fails if the folder of the backups cannot be read. Checks the backup
    /// completely, so it may block for some seconds.
    virtual Expected<std::optional<QDate>> dateOfBackup(const QString &directory) const = 0;
    /// Replaces the damaged or unreadable profile in the folder `directory`, which must not be
    /// open. Blocks for the disk. A failure leaves the profile as it was or, if its files cannot be
    /// moved, as one that is missing; the call can then be repeated.
    virtual Expected<void> replaceProfile(const QString &directory,
                                          ProfileReplacement replacement) = 0;
    /// Verifies the open profile and every store with which it synchronizes: whether everything
    /// that can be read is what was written, and whether profile and stores contain the same.
    /// Blocks until that is done, and runs the event loop meanwhile. Repairing needs a profile that
    /// was opened exclusively; the report states what is wrong after that.
    virtual VerificationReport verify(VerificationMode mode) = 0;
    /// Starts no synchronization by itself until `end`; an invalid date ends that. Schedules that
    /// are due meanwhile are made up for afterwards. Synchronizations that run go on.
    virtual void pauseUntil(const QDateTime &end) = 0;
    /// Closes the profile and removes the host classes. Must be called before the application
    /// object is destroyed, after everything that shares the profile's objects has released them.
    /// Returns whether all work has ended. If not, because a file system does not respond for
    /// example, the process must end by std::_Exit(): that work may use static objects.
    virtual bool closeProfile() = 0;
    /// Returns the databases of the open profile, owned by the plug-in; nullptr while no profile is
    /// open.
    virtual NoteLibrary *library() const = 0;
};

#define SyncPlugIn_iid "velmora.SyncPlugIn/9"
Q_DECLARE_INTERFACE(SyncPlugIn, SyncPlugIn_iid)
