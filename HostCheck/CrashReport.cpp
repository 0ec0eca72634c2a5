#include "HostCheck/CrashReport.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>

namespace {

/// The last two texts: the former one may be being written by another thread.
std::array<QByteArray, 2> texts;
std::atomic<const QByteArray *> current = nullptr;

/// Uses only what a signal handler may use.
void writeText(int signal) {
    if (const QByteArray *text = current.exchange(nullptr)) {
        [[maybe_unused]] const auto written =
            ::write(STDOUT_FILENO, text->constData(), static_cast<size_t>(text->size()));
    }
    // The handler is not called again, so this ends the process.
    ::raise(signal);
}

}  // namespace

void CrashReport::install() {
    // For a crash because the stack is full.
    static std::array<char, 65536> stack;
    stack_t alternative = {};
    alternative.ss_sp = stack.data();
    alternative.ss_size = stack.size();
    sigaltstack(&alternative, nullptr);
    struct sigaction action = {};
    action.sa_handler = &writeText;
    action.sa_flags = static_cast<int>(SA_ONSTACK | SA_RESETHAND);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        sigaction(signal, &action, nullptr);
    }
}

void CrashReport::setText(const QByteArray &text) {
    QByteArray &next = current == texts.data() ? texts[1] : texts[0];
    next = text;
    current = text.isEmpty() ? nullptr : &next;
}
