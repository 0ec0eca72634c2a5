#include "Engine/Foundation/ParallelCalls.h"

#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

void ParallelCalls::run(qsizetype count, int most,
                        const std::function<void(qsizetype number)> &call) {
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype number = next++; number < count; number = next++) {
            call(number);
        }
    };
    std::vector<std::thread> threads;
    try {
        for (qsizetype i = 1; i < qMin<qsizetype>(count, most); ++i) {
            threads.emplace_back(work);
        }
    } catch (const std::system_error &) {
        // The threads that could be started, or this one, make all calls.
    }
    work();
    for (std::thread &thread : threads) {
        thread.join();
    }
}
