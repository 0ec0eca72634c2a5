#pragma once

#include <QtCore/QDate>
#include <QtCore/QList>
#include <atomic>
#include <functional>
#include <optional>

#include "Platform/Foundation/Expected.h"

/// The daily backups of a profile: complete copies of its database, one file for each day, in the
/// folder "Backups" of the profile folder, which only the user can read. Thread-safe; all functions
/// block for the disk. Errors have the code BackupFailed unless stated otherwise.
class ProfileBackups {
public:
    /// What the backups may occupy.
    struct Limits {
        /// Number of backups.
        int count = 7;
        /// Size of all backups together, in bytes. A larger profile is not backed up.
        qint64 bytes = 4LL << 30;
        /// Number of bytes that a backup leaves free on the disk.
        qint64 free = 64LL << 20;
    };
    /// A file of the folder with the name of a backup; it may be damaged or no longer exist.
    struct Backup {
        QString path;
        QDate date;
    };

    /// Returns an error if the profile in the folder is not the one to be copied.
    using Check = std::function<Expected<void>()>;

    /// Returns the notes in the backup at `path` that are not what was saved or that it has lost,
    /// as text for the user; an empty string if there are none.
    using Inspection = std::function<Expected<QString>(const QString &path)>;

    /// The name of the folder within the profile folder.
    static inline const QString FolderName = QStringLiteral("Backups");

    /// `directory` is the profile folder. Reads and writes nothing.
    explicit ProfileBackups(const QString &directory);
    ProfileBackups(const QString &directory, const Limits &limits);

    /// Returns the backups, newest first. They may be damaged. Those of days after `today` come
    /// last: the clock was ahead when they were made. Fails if the folder cannot be read.
    Expected<QList<Backup>> all(const QDate &today) const;
    /// Returns the newest backup that verify() accepts, in the order of all(), or std::nullopt if
    /// all are damaged. Fails if the folder cannot be read, or if a newer backup cannot, for
    /// example for want of permission: an older one would lose notes. One whose disk reports an
    /// error is passed over, but if there is no other, that error is returned.
    Expected<std::optional<Backup>> newestSound(const QDate &today) const;
    /// Returns whether there is no backup of the day `today`. Fails if the folder cannot be read.
    Expected<bool> isDue(const QDate &today) const;
    /// Makes the backup of the day `today`, replacing one of the same day, and removes the oldest
    /// ones beyond the limits. The profile may be in use. A backup gets its name only after it was
    /// verified and written to the disk; a failure leaves the earlier backups as they are. If old
    /// backups, or what earlier attempts have left, cannot be removed, the backup is made and an
    /// error says so. Fails soon after `isCancelled`, which may be null, has become true, and with
    /// the error of `check`, which is called before anything is written and before the backup gets
    /// its name.
    ///
    /// If `inspect` finds such notes, the backup is made and an error names them. It replaces
    /// the latest one with such notes, and no earlier one is removed: it may have them sound.
    Expected<void> make(
        const QDate &today, const std::atomic_bool *isCancelled = nullptr,
        const Check &check = [] { return Expected<void>(); },
        const Inspection &inspect = [](const QString & /*path*/) { return QString(); }) const;

    /// Checks the whole backup at `path`: that it is a profile, and SQLite finds no damage. Errors
    /// also have the codes of ProfileInspection::checkReadable(). Fails soon after `isCancelled`,
    /// which may be null, has become true. The backup must not be in use. Reads all of it, so it
    /// takes seconds for large profiles.
    static Expected<void> verify(const QString &path,
                                 const std::atomic_bool *isCancelled = nullptr);

private:
    Expected<void> checkSpace() const;
    Expected<void> writeCopy(const QString &path, const std::atomic_bool *isCancelled) const;
    /// Gives the verified copy at `unfinished` its name.
    Expected<void> publish(const QString &unfinished, const QString &path,
                           const Check &check) const;
    /// Removes the files that failed or interrupted attempts have left.
    Expected<void> removeUnfinished() const;
    /// Removes what the attempt that failed with `error` has left. Returns `error`, and also names
    /// what cannot be removed.
    Error withRemaining(const Error &error) const;
    Expected<void> removeBeyondLimits(const QDate &today) const;
    /// Keeps the earlier backups, except for the latest one if it has such notes, too. Returns
    /// an error that names the notes `damaged`.
    Expected<void> keepBeforeDamage(const QDate &today, const QString &damaged,
                                    const Inspection &inspect) const;

    const QString m_profile;
    const QString m_folder;
    const Limits m_limits;
};
