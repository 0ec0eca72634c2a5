#include "Application/EndLimit.h"

#include <unistd.h>

#include <thread>

void EndLimit::begin(int exitCode) {
    std::thread([exitCode] {
        std::this_thread::sleep_for(LongestEnd);
        _exit(exitCode);
    }).detach();
}
