#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <algorithm>

/// Measures how long the main thread does not return to its event loop. Must be used on the main
/// thread.
class StallMeter {
public:
    StallMeter() {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { note(); });
        m_elapsed.start();
        m_timer.start(1);
    }
    StallMeter(const StallMeter &) = delete;
    StallMeter &operator=(const StallMeter &) = delete;

    /// Returns the longest stall so far, in milliseconds.
    qint64 longest() {
        note();
        return m_longest;
    }

private:
    void note() { m_longest = std::max(m_longest, m_elapsed.restart()); }

    QTimer m_timer;
    QElapsedTimer m_elapsed;
    qint64 m_longest = 0;
};
