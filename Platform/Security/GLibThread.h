#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

struct _GMainContext;
struct _GMainLoop;

/// A thread with a GLib main loop of its own, on which GLib's asynchronous calls that were begun
/// there come back, whatever event loop the rest of the process has.
class GLibThread {
public:
    GLibThread();
    ~GLibThread();
    GLibThread(const GLibThread &) = delete;
    GLibThread &operator=(const GLibThread &) = delete;

    /// Runs `block` on the thread, after those given before. Any thread; returns at once.
    void run(std::function<void()> block);
    /// Ends the loop behind the blocks that were given so far, and waits for the thread. Calls that
    /// have not come back by then never do, and later blocks are not run.
    void finish();

private:
    void runLoop();
    void runNext();

    _GMainContext *m_context;
    _GMainLoop *m_loop;
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_blocks;
    std::thread m_thread;
};
