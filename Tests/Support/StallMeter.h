#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <algorithm>
#include <ctime>
#include <utility>

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

    /// Returns the longest stall so far, in milliseconds. It grows when others use the processor.
    qint64 longest() {
        note();
        return m_longest;
    }
    /// Returns the most processor time that the thread has used without returning, in milliseconds.
    /// Unlike longest(), it does not depend on others, and does not contain time spent waiting.
    qint64 longestWork() {
        note();
        return m_longestWork;
    }

private:
    static qint64 processorTime() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
    }
    void note() {
        m_longest = std::max(m_longest, m_elapsed.restart());
        const qint64 now = processorTime();
        m_longestWork = std::max(m_longestWork, now - std::exchange(m_used, now));
    }

    QTimer m_timer;
    QElapsedTimer m_elapsed;
    qint64 m_longest = 0;
    qint64 m_used = processorTime();
    qint64 m_longestWork = 0;
};
