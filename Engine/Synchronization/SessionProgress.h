#pragma once

#include <atomic>

#include "Host/QVSyncProgress.h"

/// How far a session is. Written by the thread that runs the session, read by the main thread; the
/// values of one moment need not belong together. Thread-safe.
class SessionProgress {
public:
    using Phase = QVSyncProgress::Phase;

    /// Starts a phase of `total` steps; 0 means that their number is not known.
    void begin(Phase phase, qint64 total = 0) {
        m_done = 0;
        m_total = total;
        m_phase = phase;
    }
    /// Marks `count` steps of the phase as done.
    void advance(qint64 count) { m_done += count; }

    Phase phase() const { return m_phase; }
    qint64 done() const { return m_done; }
    qint64 total() const { return m_total; }

private:
    std::atomic<Phase> m_phase = Phase::Preparing;
    std::atomic<qint64> m_done = 0;
    std::atomic<qint64> m_total = 0;
};
