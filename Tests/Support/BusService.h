#pragma once

#include <QtCore/QThread>
#include <QtDBus/QDBusVirtualObject>
#include <functional>

#include "Platform/Foundation/CallQueue.h"

/// A service of this process on a bus, where no other has its name. Handles all messages to its
/// objects on its own thread.
class BusService : public QDBusVirtualObject {
public:
    ~BusService() override;

    QString introspect(const QString &path) const override;

protected:
    /// The objects have `path` and all paths below it.
    BusService(const QString &busAddress, const QString &name, const QString &path);

    /// Begins to handle messages. Must be called at the end of the constructor of the derived
    /// class. Throws std::runtime_error if the bus has such a service.
    void enterBus();
    /// Ends it. Must be called by the destructor of each derived class. Idempotent.
    void leaveBus();
    /// Disconnects from the bus, on the service's thread.
    void disappear();

private:
    /// Calls `call` on the thread of this object and waits until it has returned.
    void callOnThread(const std::function<void()> &call);

    const QString m_busAddress;
    const QString m_name;
    const QString m_path;
    QThread m_thread;
    CallQueue m_calls{this};
};
