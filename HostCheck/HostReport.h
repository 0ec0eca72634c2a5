#pragma once

#include <QtCore/QJsonArray>
#include <mutex>

#include "HostCheck/HostFinding.h"

/// What velmora-check-host writes to the standard output. Thread-safe.
class HostReport {
public:
    enum class Format {
        /// One line for each finding, at once.
        Lines,
        /// One array of objects, at the end.
        Json,
    };

    explicit HostReport(Format format) : m_format(format) {}

    /// Adds what was found about a promise.
    void add(const HostFinding &finding);
    /// Ends the report. Nothing can be added afterwards. Returns whether no promise is broken.
    bool finish();

private:
    const Format m_format;
    std::mutex m_mutex;
    QJsonArray m_findings;
    bool m_isSound = true;
};
