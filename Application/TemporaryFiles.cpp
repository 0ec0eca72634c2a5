#include "Application/TemporaryFiles.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <QtCore/QDebug>
#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

TemporaryFiles::TemporaryFiles() {
    qputenv("TMPDIR", m_folder.path().toUtf8());
    sigemptyset(&m_signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&m_signals, signal);
    }
    m_wakeUp = FileDescriptor(eventfd(0, EFD_CLOEXEC));
    m_received = FileDescriptor(signalfd(-1, &m_signals, SFD_CLOEXEC));
    if (!m_wakeUp.isValid() || !m_received.isValid()) {
        qWarning("A signal would leave temporary files: %s", qPrintable(qt_error_string(errno)));
        return;
    }
    pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    try {
        m_thread = std::thread([this] { waitForSignal(); });
    } catch (const std::system_error &reason) {
        qWarning("A signal would leave temporary files: %s", reason.what());
        pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
    }
}

TemporaryFiles::~TemporaryFiles() {
    if (!m_thread.joinable()) {
        return;
    }
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
    for (int attempt = 0; attempt < attempts && !m_folder.remove(); ++attempt) {
    }
    std::signal(signal, SIG_DFL);
    pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
    std::raise(signal);
}
