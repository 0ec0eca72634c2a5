#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QStringList>

/// The memory of another process, as a core file would hold it, and whether texts are in it.
class ProgramMemory {
public:
    /// Reads the memory of `process`: all of its writable mappings, but for those that core files
    /// leave out. Empty if that is not allowed.
    explicit ProgramMemory(qint64 process);

    /// Whether `bytes` are in it, as they are, in base64 or as hexadecimal digits.
    bool contains(const QByteArray &bytes) const;
    /// Whether one of `texts` is in it, in UTF-8, UTF-16 or base64.
    bool containsAny(const QStringList &texts) const;

    /// Whether another process of the same user, without privileges, may read the memory of
    /// `process` or attach to it as a debugger does. `process` must have no privileges either, see
    /// below. False if the system does not tell.
    static bool isOpenToOthers(qint64 process);
    /// Takes all privileges from this process; async-signal-safe. Returns whether it has none.
    static bool giveUpPrivileges();
    /// Takes all privileges from the programs that this process starts from now on. To be called
    /// between fork() and exec().
    static void dropPrivileges();

private:
    /// Reads a mapping, but for the pages of it that were never written.
    void read(qint64 start, qint64 size);
    bool has(const QByteArray &bytes) const;

    QFile m_memory;
    QFile m_pages;
    QByteArray m_contents;
};
