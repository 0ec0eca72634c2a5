#pragma once

#include <QtCore/QObject>

/// Turns the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) into a Qt signal on the
/// main thread. There can be one object at a time; its destructor restores the former handlers.
class EndSignals : public QObject {
    Q_OBJECT
public:
    explicit EndSignals(QObject *parent = nullptr);
    ~EndSignals() override;

Q_SIGNALS:
    /// Emitted from the event loop after the process has received one of the signals.
    void received();
};
