#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <algorithm>
#include <ctime>
#include <utility>

#include "Support/DelayByOthers.h"

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

    /// Returns the longest stall so far, in milliseconds, without the time for which the thread has
    /// waited because others used the processors.
    qint64 longest() {
        note();
        return m_longest;
    }
    /// Returns the most processor time that the thread has used without returning, in milliseconds.
    /// Unlike longest(), it does not contain time spent waiting.
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
        const auto delay = delayByOthers().value_or(m_delay);
        const auto stall = std::chrono::nanoseconds(m_elapsed.nsecsElapsed()) -
                           (delay - std::exchange(m_delay, delay));
        m_elapsed.start();
        m_longest =
            std::max(m_longest,
                     qint64(std::chrono::duration_cast<std::chrono::milliseconds>(stall).count()));
        const qint64 now = processorTime();
        m_longestWork = std::max(m_longestWork, now - std::exchange(m_used, now));
    }

    QTimer m_timer;
    QElapsedTimer m_elapsed;
    std::chrono::nanoseconds m_delay = delayByOthers().value_or(std::chrono::nanoseconds(0));
    qint64 m_longest = 0;
    qint64 m_used = processorTime();
    qint64 m_longestWork = 0;
};
