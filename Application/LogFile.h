#pragma once

#include "Application/LogEntry.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/FileDescriptor.h"

/// The file that keeps the entries of the log across restarts: one JSON object per line. Only the
/// user can read it. When it is longer than 2 MB, the older half is removed. Entries may be missing
/// after a power failure. Must be used on the main thread; calls block for the disk.
class LogFile {
public:
    /// The file is in the folder of a profile.
    static QString pathInProfile(const QString &profile);

    /// The maximum size in bytes, as long as the file can be shortened.
    static constexpr qint64 Limit = 2LL << 20;

    /// Opens or creates the file `path` and returns its entries, oldest first. If there are lines
    /// that are no entries, a last entry, which is not in the file, says how many. Fails if the
    /// file is not a plain file of the user or cannot be read.
    Expected<QList<LogEntry>> open(const QString &path);
    /// Appends an entry. Fails if the file is not open or the disk is full; the entry is then lost,
    /// and the next one can be appended all the same. Also fails if the file is too long and cannot
    /// be shortened; the entry is then in the file, and shortening it is tried again after another
    /// Limit / 8 bytes.
    Expected<void> append(const LogEntry &entry);

private:
    /// Opens or creates the file and returns its contents, at most the last Limit bytes.
    Expected<QByteArray> openForAppending(const QString &path);
    /// Removes the older half.
    Expected<void> shorten();
    /// Returns the error for the errno value `number`.
    Error systemFailure(int number) const;
    Error notSaved(const QString &reason) const;

    QString m_path;
    FileDescriptor m_file;
    /// The size of the file in bytes.
    qint64 m_size = 0;
    /// The size beyond which the file is shortened.
    qint64 m_longest = Limit;
    /// Whether the last line may be incomplete.
    bool m_isTorn = false;
};
