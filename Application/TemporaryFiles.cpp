#include "Application/TemporaryFiles.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <array>
#include <cerrno>
#include <cstdint>

TemporaryFiles::TemporaryFiles() : m_wakeUp(eventfd(0, EFD_CLOEXEC)) {
    qputenv("TMPDIR", m_folder.path().toUtf8());
    sigemptyset(&m_signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&m_signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    m_received = FileDescriptor(signalfd(-1, &m_signals, SFD_CLOEXEC));
    m_thread = std::thread([this] { waitForSignal(); });
}

TemporaryFiles::~TemporaryFiles() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(m_wakeUp.number(), &one, sizeof(one));
    m_thread.join();
    pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
}

void TemporaryFiles::waitForSignal() {
    std::array<pollfd, 2> events{{{.fd = m_received.number(), .events = POLLIN, .revents = 0},
                                  {.fd = m_wakeUp.number(), .events = POLLIN, .revents = 0}}};
    while (poll(events.data(), events.size(), -1) < 0 && errno == EINTR) {
    }
    signalfd_siginfo information{};
    if ((events[0].revents & POLLIN) != 0 &&
        read(m_received.number(), &information, sizeof(information)) == sizeof(information)) {
        endProcess(static_cast<int>(information.ssi_signo));
    }
}

void TemporaryFiles::endProcess(int signal) {
    // Another thread may be creating files.
    constexpr int attempts = 10;
    for (int attempt = 0; attempt < attempts && QDir(m_folder.path()).exists(); ++attempt) {
        QDir(m_folder.path()).removeRecursively();
    }
    std::signal(signal, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
    std::raise(signal);
}
