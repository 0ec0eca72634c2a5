#pragma once

#include <QtCore/QPointer>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// One observed key; deletes itself after `stop`, as soon as no delivery is under way.
class Observer : public QObject {
    Q_OBJECT
public:
    Observer(QObject *object, const QByteArray &key, std::function<void()> handler);
    void stop();
    /// Calls the handler, unless stopped.
    void deliver();

protected:
    virtual void keyChanged() { deliver(); }

private:
    Q_SLOT void receive();

    std::function<void()> m_handler;
    int m_deliveries = 0;
    bool m_isStopped = false;
};

/// An observed key whose value is followed further, along `rest`.
class PathObserver : public Observer {
    Q_OBJECT
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
