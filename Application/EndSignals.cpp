#include "Application/EndSignals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QtCore/QDebug>
#include <QtCore/QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

namespace {

constexpr std::array Signals = {SIGTERM, SIGINT, SIGHUP};

// Global, because a signal handler has no other way to reach it.
volatile int wakeUp = -1;
std::array<struct sigaction, Signals.size()> formerActions;

void handle(int /*signal*/) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeUp, &one, sizeof(one));
}

}  // namespace

EndSignals::EndSignals(QObject *parent) : QObject(parent) {
    wakeUp = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeUp < 0) {
        qWarning("Signals end the program at once: %s", qPrintable(qt_error_string(errno)));
        return;
    }
    auto *notifier = new QSocketNotifier(wakeUp, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto size = read(wakeUp, &count, sizeof(count));
        Q_EMIT received();
    });
    struct sigaction action {};
    action.sa_handler = &handle;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals.at(i), &action, &formerActions.at(i));
    }
}

EndSignals::~EndSignals() {
    if (wakeUp < 0) {
        return;
    }
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals.at(i), &formerActions.at(i), nullptr);
    }
    close(wakeUp);
    wakeUp = -1;
}
