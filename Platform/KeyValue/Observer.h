#pragma once

#include <QtCore/QPointer>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// One observed key; deletes itself after `stop`, as soon as no delivery is under way.
/// Takes its signal by `qt_metacall` itself, as QSignalSpy does: that is how a signal known only by
/// its index is received quickest.
class Observer : public QObject {
public:
    Observer(QObject *object, const QByteArray &key, std::function<void()> handler);
    void stop();
    /// Calls the handler, unless stopped.
    void deliver();
    int qt_metacall(QMetaObject::Call call, int method, void **arguments) override;

protected:
    virtual void keyChanged() { deliver(); }

private:
    std::function<void()> m_handler;
    int m_deliveries = 0;
    bool m_isStopped = false;
};

/// An observed key whose value is followed further, along `rest`.
class PathObserver : public Observer {
public:
    PathObserver(QObject *object, const QByteArray &key, QByteArray rest,
                 std::function<void()> handler);

protected:
    void keyChanged() override;

private:
    void followRest();
    void restChanged();

    QPointer<QObject> m_object;
    const QByteArray m_key;
    const QByteArray m_rest;
    Observation m_restObservation;
};

/// An observer of `keyPath`, whatever its length. The caller stops it.
Observer *makeObserver(QObject *object, const QByteArray &keyPath, std::function<void()> handler);

}  // namespace KeyValue
