#include "Support/BusService.h"

#include <QtDBus/QDBusConnection>
#include <future>
#include <memory>
#include <stdexcept>

BusService::BusService(const QString &busAddress, const QString &name, const QString &path)
    : m_busAddress(busAddress), m_name(name), m_path(path) {}

BusService::~BusService() {
    leaveBus();
}

void BusService::enterBus() {
    moveToThread(&m_thread);
    m_thread.start();
    bool isThere = false;
    callOnThread([&] {
        QDBusConnection bus = QDBusConnection::connectToBus(m_busAddress, m_name);
        isThere = bus.registerVirtualObject(m_path, this, QDBusConnection::SubPath) &&
                  bus.registerService(m_name);
    });
    if (!isThere) {
        throw std::runtime_error("no " + m_name.toStdString() + " can be put on the bus");
    }
}

void BusService::leaveBus() {
    if (m_thread.isRunning()) {
        callOnThread([this] {
            QDBusConnection(m_name).unregisterObject(m_path);
            disappear();
        });
        m_thread.quit();
        m_thread.wait();
    }
}

void BusService::disappear() {
    QDBusConnection::disconnectFromBus(m_name);
}

void BusService::callOnThread(const std::function<void()> &call) {
    const auto done = std::make_shared<std::promise<void>>();
    m_calls.post([&call, done] {
        call();
        done->set_value();
    });
    done->get_future().wait();
}

QString BusService::introspect(const QString & /*path*/) const {
    return {};
}
