#include "Platform/KeyValue/Observer.h"

#include <QtCore/QScopeGuard>

#include "Platform/KeyValue/KeyPath.h"

namespace KeyValue {

namespace {
/// The index of the only method that Observer adds to those of QObject.
const int receiveMethod = QObject::staticMetaObject.methodCount();
}  // namespace

Observer::Observer(QObject *object, const QByteArray &key, std::function<void()> handler)
    : m_handler(std::move(handler)) {
    const QMetaProperty property = requireProperty(object, key);
    if (property.hasNotifySignal()) {
        QMetaObject::connect(object, property.notifySignalIndex(), this, receiveMethod,
                             Qt::DirectConnection);
    }
}

void Observer::stop() {
    m_isStopped = true;
    if (m_deliveries == 0) {
        delete this;
    }
}

int Observer::qt_metacall(QMetaObject::Call call, int method, void **arguments) {
    if (call != QMetaObject::InvokeMetaMethod || method != receiveMethod) {
        return QObject::qt_metacall(call, method, arguments);
    }
    deliver();
    return -1;
}

bool Observer::isAnnouncement(QMetaObject::Call call, int method) const {
    return call == QMetaObject::InvokeMetaMethod && method == receiveMethod && !m_isStopped;
}

void Observer::deliver() {
    if (m_isStopped) {
        return;
    }
    ++m_deliveries;
    const auto guard = qScopeGuard([this] {
        if (--m_deliveries == 0 && m_isStopped) {
            delete this;
        }
    });
    m_handler();
}

PathObserver::PathObserver(QObject *object, const QByteArray &key, QByteArray rest,
                           std::function<void()> handler)
    : Observer(object, key, std::move(handler)),
      m_object(object),
      m_key(key),
      m_rest(std::move(rest)) {
    followRest();
}

int PathObserver::qt_metacall(QMetaObject::Call call, int method, void **arguments) {
    if (isAnnouncement(call, method)) {
        followRest();
    }
    return Observer::qt_metacall(call, method, arguments);
}

void PathObserver::followRest() {
    m_restObservation.stop();
    if (QObject *next = m_object ? objectAt(m_object, m_key) : nullptr) {
        m_restObservation = observe(next, m_rest, [this] { restChanged(); });
    }
}

void PathObserver::restChanged() {
    if (m_object) {
        deliver();
    }
}

Observer *makeObserver(QObject *object, const QByteArray &keyPath, std::function<void()> handler) {
    const auto [key, rest] = splitKeyPath(keyPath);
    if (rest.isEmpty()) {
        return new Observer(object, key, std::move(handler));
    }
    return new PathObserver(object, key, rest, std::move(handler));
}

Observation &Observation::operator=(Observation &&other) noexcept {
    if (this != &other) {
        stop();
        m_observer = std::exchange(other.m_observer, nullptr);
    }
    return *this;
}

void Observation::stop() {
    if (Observer *observer = std::exchange(m_observer, nullptr)) {
        observer->stop();
    }
}

Observation observe(QObject *object, const QByteArray &keyPath, std::function<void()> handler,
                    Deliver deliver) {
    Observer *observer = makeObserver(object, keyPath, std::move(handler));
    Observation observation(observer);
    if (deliver == Deliver::InitialAndChanges) {
        observer->deliver();
    }
    return observation;
}

}  // namespace KeyValue
