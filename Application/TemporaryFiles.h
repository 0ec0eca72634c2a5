#pragma once

#include <QtCore/QTemporaryDir>
#include <csignal>
#include <thread>

#include "Platform/Foundation/FileDescriptor.h"

/// A folder for all temporary files of a process without windows, among which are copies of the
/// user's notes. It is removed with this object, and also if the process is ended by SIGTERM,
/// SIGINT or SIGHUP.
///
/// Must be created on the main thread before any other thread is started and before a temporary
/// file is created. Only one instance may exist at a time. It blocks those signals in the calling
/// thread and in the threads that are started later.
class TemporaryFiles {
public:
    /// Creates the folder and makes it that of all temporary files (TMPDIR), also of processes that
    /// are started later. A folder that cannot be created leaves that variable empty, so the files
    /// are then in the system's folder. If the system lacks what waiting for signals takes, a
    /// warning is written to the log, and signals have their usual effect.
    TemporaryFiles();
    /// Removes the folder with everything in it. TMPDIR keeps naming it, so no temporary file can
    /// be created afterwards. Signals that arrive from now on have their usual effect.
    ~TemporaryFiles();
    TemporaryFiles(const TemporaryFiles &) = delete;
    TemporaryFiles &operator=(const TemporaryFiles &) = delete;

private:
    /// Waits for a signal, upon which it ends the process, or for the destructor.
    void waitForSignal();
    /// Removes the folder, and then ends the process as if it had not blocked `signal`.
    void endProcess(int signal);

    QTemporaryDir m_folder;
    sigset_t m_signals{};
    FileDescriptor m_received;
    FileDescriptor m_wakeUp;
    std::thread m_thread;
};
