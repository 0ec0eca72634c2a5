#pragma once

#include <QtCore/QString>

/// Makes SQLite's input and output fail in the whole process until destroyed. There is one at a
/// time, and every database opened before and after is affected. Main thread.
class FaultyFileSystem {
public:
    enum class Fault {
        /// Any call fails with an input or output error.
        Error,
        /// Calls that need space on the disk fail because there is none.
        Full,
        /// Temporary files cannot be opened, and calls on those that are open fail.
        NoTemporaryFiles,
        /// Any call ends the process, as SIGKILL does.
        End,
        /// Reads of one file fail.
        Unreadable,
        /// Files cannot be flushed, and what was written to one before is never stored then.
        Flush,
    };
    enum class Duration { Once, FromThenOn };

    /// The call number `first` to which `fault` applies fails; the first call has the number 1.
    FaultyFileSystem(Fault fault, qint64 first, Duration duration);
    /// The read number `first` of the existing file `path` fails, and all reads of it that follow,
    /// also if it is renamed.
    FaultyFileSystem(const QString &path, qint64 first);
    ~FaultyFileSystem();
    FaultyFileSystem(const FaultyFileSystem &) = delete;
    FaultyFileSystem &operator=(const FaultyFileSystem &) = delete;

    /// Returns whether any call has failed.
    bool hasFailed() const;
    /// Returns the number of calls to which the fault applies, whether they failed or not.
    qint64 calls() const;

    /// Changes the copies of databases in `folder` to what a power failure leaves of those that
    /// were written since the beginning. The fault must be Flush.
    void losePower(const QString &folder) const;

    /// Puts the failing file system between SQLite and the disk. Must be called before the first
    /// database is opened; later calls have no effect.
    static void install();
};
