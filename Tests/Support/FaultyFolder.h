#pragma once

#include <QtCore/QString>
#include <memory>

/// Makes the system calls of one thread on a folder and on everything below it fail until
/// destroyed. There is one at a time. Calls on open files and folders count too, but not those that
/// close them, which have nothing left to do, nor those that other libraries make.
class FaultyFolder {
public:
    enum class Fault {
        /// Any call fails with an input or output error.
        Error,
        /// Calls that need space on the disk fail because there is none.
        Full,
        /// A signal interrupts a read or write before it begins.
        Interrupted,
        /// Half is read or written.
        Short,
    };
    enum class Duration { Once, FromThenOn };
    /// Whether the file system can rename a file unless the new name exists, which those of a
    /// network cannot.
    enum class Renaming { WithFlags, WithoutFlags };

    /// The call number `first` of the calling thread to which `fault` applies fails; the first call
    /// has the number 1. `path` must contain no symbolic link.
    FaultyFolder(const QString &path, Fault fault, qint64 first, Duration duration,
                 Renaming renaming = Renaming::WithFlags);
    ~FaultyFolder();
    FaultyFolder(const FaultyFolder &) = delete;
    FaultyFolder &operator=(const FaultyFolder &) = delete;

    /// Returns whether any call has failed.
    bool hasFailed() const;
    /// Returns the names of the calls to which the fault applies, whether they failed or not.
    const QStringList &calls() const;

    struct Plan;

private:
    const std::unique_ptr<Plan> m_plan;
};
