#include "Platform/Foundation/DayChange.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QtCore/QDateTime>

std::shared_ptr<DayChange> DayChange::shared() {
    static std::weak_ptr<DayChange> existing;
    std::shared_ptr<DayChange> shared = existing.lock();
    if (!shared) {
        shared = std::shared_ptr<DayChange>(new DayChange);
        existing = shared;
    }
    return shared;
}

DayChange::DayChange() : m_timer(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (!m_timer.isValid()) {
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_timer.number(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &DayChange::timerEnded);
    waitForMidnight();
}

void DayChange::waitForMidnight() {
    const QDateTime midnight = QDate::currentDate().addDays(1).startOfDay();
    itimerspec time{};
    time.it_value.tv_sec = midnight.toSecsSinceEpoch();
    // The timer also ends when the clock is set.
    timerfd_settime(m_timer.number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &time, nullptr);
}

void DayChange::timerEnded() {
    quint64 expirations = 0;
    const ssize_t size = read(m_timer.number(), &expirations, sizeof expirations);
    if (size < 0 && errno == EAGAIN) {
        return;
    }
    waitForMidnight();
    Q_EMIT occurred();
}
