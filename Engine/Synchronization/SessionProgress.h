#pragma once

#include <atomic>

#include "Host/QVSyncProgress.h"

/// How far a session is. Written by the thread that runs the session, read by the main thread; the
/// values of one moment need not belong together. Thread-safe.
class SessionProgress {
public:
    using Phase = QVSyncProgress::Phase;

    /// Starts a phase of `total` steps; 0 means that their number is not known. The number done
    /// starts from 0 again. A reader may see the old values with the new phase for a moment.
    void begin(Phase phase, qint64 total = 0) {
        m_done = 0;
        m_total = total;
        m_phase = phase;
    }
    /// Marks `count` steps of the phase as done; the sum may exceed the total if more turns up
    /// meanwhile.
    void advance(qint64 count) { m_done += count; }

    /// Preparing until begin() is called for the first time.
    Phase phase() const { return m_phase; }
    /// The steps that are done, and all steps of the phase; 0 if their number is not known.
    qint64 done() const { return m_done; }
    qint64 total() const { return m_total; }

private:
    std::atomic<Phase> m_phase = Phase::Preparing;
    std::atomic<qint64> m_done = 0;
    std::atomic<qint64> m_total = 0;
};
