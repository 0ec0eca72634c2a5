#pragma once

#include <mutex>

#include "Host/HostVersion.h"
#include "HostCheck/HostFinding.h"
#include "Platform/Foundation/Expected.h"

/// What velmora-check-host writes to the standard output. Every finding is written at once.
/// Thread-safe.
class HostReport {
public:
    enum class Format {
        /// One line for each finding.
        Lines,
        /// An object with an array of objects, one for each finding.
        Json,
    };

    /// Writes nothing yet.
    explicit HostReport(Format format) : m_format(format) {}

    /// Begins the report about a host that was compiled with `version` of the interface. Must be
    /// called first, and once.
    void begin(HostVersion version);
    /// Returns what ends the report, after begin(), if `finding` is the last one.
    QByteArray end(const HostFinding &finding) const;
    /// Adds what was found about a promise.
    void add(const HostFinding &finding);
    /// Ends the report. Nothing can be added afterwards. Returns whether no promise is broken, or
    /// an error if not everything could be written.
    Expected<bool> finish();

private:
    void print(const QByteArray &text);
    /// Returns `finding` as it is written, after others.
    QByteArray text(const HostFinding &finding) const;
    /// Returns what follows the last finding.
    QByteArray end() const;

    const Format m_format;
    mutable std::mutex m_mutex;
    bool m_isFirst = true;
    bool m_isSound = true;
    /// The first failure to write.
    Expected<void> m_written;
};
