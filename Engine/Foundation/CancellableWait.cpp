#include "Engine/Foundation/CancellableWait.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

namespace {

/// An event that wakes poll(2).
class WakeEvent {
public:
    WakeEvent() : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    ~WakeEvent() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    WakeEvent(const WakeEvent &) = delete;
    WakeEvent &operator=(const WakeEvent &) = delete;

    int descriptor() const { return m_descriptor; }
    void trigger() const { static_cast<void>(eventfd_write(m_descriptor, 1)); }

private:
    const int m_descriptor;
};

/// Returns the remaining time in milliseconds, as poll(2) expects it.
int timeLeft(QDeadlineTimer deadline) {
    constexpr qint64 Longest = std::numeric_limits<int>::max();
    return deadline.isForever() ? -1
                                : static_cast<int>(std::min(deadline.remainingTime(), Longest));
}

}  // namespace

bool CancellableWait::forDescriptor(int descriptor, short events) const {
    const WakeEvent cancelled;
    if (cancelled.descriptor() < 0) {
        return false;
    }
    const std::stop_callback waking(m_future.cancellation(), [&] { cancelled.trigger(); });
    std::array<pollfd, 2> waiting{{{descriptor, events, 0}, {cancelled.descriptor(), POLLIN, 0}}};
    int count = 0;
    do {
        count = poll(waiting.data(), waiting.size(), timeLeft(m_deadline));
    } while (count < 0 && errno == EINTR);
    return count > 0 && waiting[1].revents == 0;
}

bool CancellableWait::forDeadline() const {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    until(never, lock, [] { return false; });
    return !m_future.isCancelled();
}
