#pragma once

#include <QtCore/QPointer>

#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

/// Observer of one key. It deletes itself after stop(), once no delivery is in progress; it is not
/// a child of the observed object.
///
/// Receives its signal in `qt_metacall`, as QSignalSpy does: the fastest way to receive a signal
/// that is known only by its index. Raises an AssertionFailure if `object` is null or has no such
/// key.
class Observer : public QObject {
public:
    /// Connects to the key's NOTIFY signal, if it has one. Does not call `handler`.
    Observer(QObject *object, const QByteArray &key, std::function<void()> handler);
    /// Ends the delivery and deletes the observer, at the latest when the running handler returns.
    /// The caller must not use the pointer afterwards.
    void stop();
    /// Calls the handler, unless stopped. Reentrant. The observer may be deleted when it returns.
    void deliver();
    int qt_metacall(QMetaObject::Call call, int method, void **arguments) override;

protected:
    /// Returns whether these arguments of `qt_metacall` announce the key, and the observer is not
    /// stopped.
    bool isAnnouncement(QMetaObject::Call call, int method) const;

private:
    std::function<void()> m_handler;
    /// Number of calls of the handler that are in progress.
    int m_deliveries = 0;
    bool m_isStopped = false;
};

/// Observer of a key path of at least two keys: observes `key` of `object`, and `rest` of the
/// object that it currently holds.
class PathObserver : public Observer {
public:
    /// Raises an AssertionFailure as Observer does, also for a key of `rest` that the present
    /// object lacks.
    PathObserver(QObject *object, const QByteArray &key, QByteArray rest,
                 std::function<void()> handler);
    int qt_metacall(QMetaObject::Call call, int method, void **arguments) override;

private:
    /// Observes `rest` of the object that the key holds now, instead of the former one.
    void followRest();
    /// Delivers, unless the observed object is destroyed.
    void restChanged();

    /// Null once the object is destroyed.
    QPointer<QObject> m_object;
    const QByteArray m_key;
    const QByteArray m_rest;
    Observation m_restObservation;
};

/// Returns an observer for `keyPath` of any length. Never null. The caller must end it with stop(),
/// and must not delete it.
Observer *makeObserver(QObject *object, const QByteArray &keyPath, std::function<void()> handler);

}  // namespace KeyValue
