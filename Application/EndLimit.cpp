#include "Application/EndLimit.h"

#include <unistd.h>

#include <QtCore/QtGlobal>
#include <latch>
#include <memory>
#include <system_error>
#include <thread>

void EndLimit::begin(int exitCode) {
    const auto isRunning = std::make_shared<std::latch>(1);
    try {
        std::thread([exitCode, isRunning] {
            isRunning->count_down();
            std::this_thread::sleep_for(LongestEnd);
            _exit(exitCode);
        }).detach();
    } catch (const std::system_error &reason) {
        qWarning("The end of the program has no limit: %s", reason.what());
        return;
    }
    // The leak check at the end of a sanitized process fails if it meets a thread that is starting.
    isRunning->wait();
}
