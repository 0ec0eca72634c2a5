#pragma once

#include <QtCore/QEventLoop>
#include <optional>
#include <thread>

#include "Platform/Foundation/MainQueue.h"

/// Runs `work` on a thread, on which it may block, and the event loop meanwhile. Returns what it
/// returns. Must be called on the main thread.
template <class Work>
auto awaitOnThread(const Work &work) {
    std::optional<decltype(work())> result;
    QEventLoop loop;
    std::thread thread([&] {
        result.emplace(work());
        MainQueue::dispatchAsync([&] { loop.quit(); });
    });
    loop.exec();
    thread.join();
    return *result;
}
