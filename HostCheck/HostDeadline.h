#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Notices steps that do not end in time, such as a call of a function of a host that never
/// returns. Must be used on one thread.
class HostDeadline {
public:
    /// `limit` is the time that each step has, and must be positive. No step begins yet.
    explicit HostDeadline(std::chrono::seconds limit);
    /// Ends the last step. Waits for a call of `missed` that is running.
    ~HostDeadline();
    HostDeadline(const HostDeadline &) = delete;
    HostDeadline &operator=(const HostDeadline &) = delete;

    /// Ends the last step and begins another one. If that does not end in time, `missed` is called
    /// once, on a thread of this object; it must not be empty. Does not block.
    void begin(std::function<void()> missed);

private:
    /// Waits for deadlines. Called on the thread.
    void watch();

    const std::chrono::seconds m_limit;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    /// What to call at `m_end`; empty if that has happened.
    std::function<void()> m_missed;
    std::chrono::steady_clock::time_point m_end;
    bool m_isOver = false;
    /// The last member, since it uses the others.
    std::thread m_thread;
};
