#pragma once

#include <QtCore/QObject>
#include <functional>

/// Carries calls to the main thread. The engine owns the only one; calls that have not run when it
/// goes are dropped on the main thread, so that none outlives the plug-in's code.
class MainThreadQueue : public QObject {
    Q_OBJECT
public:
    MainThreadQueue();
    ~MainThreadQueue() override;

    /// Runs `call` from the main thread's event loop, later. Any thread; where there is no queue,
    /// `call` is dropped at once.
    static void post(std::function<void()> call);
};
