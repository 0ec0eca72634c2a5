#pragma once

#include <QtCore/QObject>

/// Converts the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) to a Qt signal on the
/// main thread. Only one instance may exist at a time. The constructor replaces the process's
/// handlers of these signals; the destructor restores them. Must be used on the main thread.
class EndSignals : public QObject {
    Q_OBJECT
public:
    /// From now on these signals do not end the process by themselves: received() must be connected
    /// to something that does. If the system lacks a file descriptor, they still do, and a warning
    /// is written to the log.
    explicit EndSignals(QObject *parent = nullptr);
    ~EndSignals() override;

Q_SIGNALS:
    /// Emitted from the event loop after the process has received one of the signals; once for
    /// several signals that arrive together. Not emitted while the main thread does not run its
    /// event loop.
    void received();
};
