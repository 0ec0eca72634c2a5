#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

// GLib's own names.
struct _GMainContext;  // NOLINT(*-reserved-identifier, cert-dcl*)
struct _GMainLoop;     // NOLINT(*-reserved-identifier, cert-dcl*)

/// A thread that runs its own GLib main loop. Asynchronous GLib calls started on it complete on it,
/// regardless of the event loops of other threads.
class GLibThread {
public:
    /// Starts the thread.
    GLibThread();
    /// Does what finish() does. Must not be called on the thread itself.
    ~GLibThread();
    GLibThread(const GLibThread &) = delete;
    GLibThread &operator=(const GLibThread &) = delete;

    /// Runs `block`, which must not be empty or throw, on the thread, after the blocks submitted
    /// before. Returns at once. Blocks must not wait, since all share the thread. Thread-safe.
    void run(std::function<void()> block);
    /// Ends the loop after the blocks submitted so far, and waits for the thread. Calls that have
    /// not completed by then never do; blocks submitted later are not run. Idempotent. Must not be
    /// called on the thread itself.
    void finish();

private:
    /// The thread's function: makes the context the default of the thread and runs the loop.
    void runLoop();
    /// Runs the next block that was submitted.
    void runNext();

    _GMainContext *m_context;
    _GMainLoop *m_loop;
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_blocks;
    std::thread m_thread;
};
