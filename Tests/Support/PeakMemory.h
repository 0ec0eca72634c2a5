#pragma once

#include <malloc.h>

#include <QtCore/QFile>

/// The sanitizer's equivalent of malloc_trim(); null without one.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" __attribute__((weak)) void __sanitizer_purge_allocator();

/// Measures the resident memory of this process in the meantime: how much more than now it takes at
/// most.
class PeakMemory {
public:
    PeakMemory() : m_isReset(reset()), m_before(value("VmRSS")) {}

    /// Returns the largest growth since construction, in megabytes, or a negative number if the
    /// system does not tell it.
    qint64 growth() const { return m_isReset ? (value("VmHWM") - m_before) / 1024 : -1; }

    /// Returns the value of `key` in /proc/self/status, which is a number (of kilobytes), or -1.
    static qint64 value(const QByteArray &key) {
        QFile file(QStringLiteral("/proc/self/status"));
        if (!file.open(QIODevice::ReadOnly)) {
            return -1;
        }
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith(key + ':')) {
                return line.mid(key.size() + 1).simplified().split(' ').first().toLongLong();
            }
        }
        return -1;
    }

private:
    /// Makes the peak that of now, without what is free.
    static bool reset() {
        malloc_trim(0);
        if (__sanitizer_purge_allocator) {
            __sanitizer_purge_allocator();
        }
        QFile file(QStringLiteral("/proc/self/clear_refs"));
        return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
    }

    const bool m_isReset;
    const qint64 m_before;
};
