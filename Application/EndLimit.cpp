#include "Application/EndLimit.h"

#include <unistd.h>

#include <latch>
#include <memory>
#include <thread>

void EndLimit::begin(int exitCode) {
    const auto isRunning = std::make_shared<std::latch>(1);
    std::thread([exitCode, isRunning] {
        isRunning->count_down();
        std::this_thread::sleep_for(LongestEnd);
        _exit(exitCode);
    }).detach();
    // The leak check at the end of a sanitized process fails if it meets a thread that is starting.
    isRunning->wait();
}
