#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <atomic>
#include <functional>
#include <type_traits>
#include <utility>

#include "Platform/KeyValue/SharedPointer.h"
#include "Platform/PlatformExport.h"

/// Key-value coding, observing and announcing over Qt properties.
///
/// A key is a Q_PROPERTY. Its NOTIFY signal, which must have no arguments, carries the changes, so
/// QSignalSpy and plain connections receive them too. A key without NOTIFY can be read and bound,
/// but never announces. A key path consists of keys separated by points
/// ("representedObject.schedule"); each key but the last must hold a QObject, by pointer or
/// std::shared_ptr, or be null.
///
/// A class declares the dependencies of a derived key with
///     Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDatabases();
/// for the key "databases". Announcing a key also announces its dependents. A cycle of dependencies
/// is tolerated: each of its keys is announced once.
///
/// There are no locks: all functions must be called on the thread of their objects, and a change is
/// delivered synchronously on the thread that announces it.
///
/// A key that does not exist, a value whose type does not fit its key, and a key inside a path that
/// holds something other than an object raise an AssertionFailure. Handlers may throw as well: the
/// exception passes through the setter that announced, and observers that were not notified by then
/// are not notified of that change.
namespace KeyValue {

/// The key paths on which a derived key depends.
using KeyPaths = QSet<QByteArray>;

class Observer;

/// Returns the value at `keyPath`, or an invalid variant if an object on the path is null. `object`
/// must not be null.
PLATFORM_EXPORT QVariant value(const QObject *object, const QByteArray &keyPath);

/// Writes `value` to the last key of `keyPath`; an invalid variant resets it to its type's default
/// value. Has no effect if an object on the path is null. Announces only if the setter does.
/// `object` must not be null.
PLATFORM_EXPORT void setValue(QObject *object, const QByteArray &keyPath, const QVariant &value);

/// Returns whether `keyPath` can be written now: no object on the path is null and the last key has
/// a setter.
PLATFORM_EXPORT bool isWritable(const QObject *object, const QByteArray &keyPath);

/// Returns whether `value` represents "no value": an invalid or null variant, a null object
/// pointer, an empty std::optional<Error>, an invalid date, or a nil Url. An empty string is a
/// value.
PLATFORM_EXPORT bool isAbsent(const QVariant &value);

/// Returns the QObject that `value` holds by raw or shared pointer; null if it holds none. The
/// variant keeps its share in the ownership.
PLATFORM_EXPORT QObject *objectValue(const QVariant &value);

/// RAII handle of an observer. Destroying it, or stop(), ends the delivery immediately, also when
/// called from the observer's own handler. It may outlive the observed object, after which nothing
/// is delivered. Movable, not copyable; must be used on the thread of the observed object.
class PLATFORM_EXPORT Observation {
public:
    Observation() = default;
    /// Takes ownership of `observer`, which may be null.
    explicit Observation(Observer *observer) : m_observer(observer) {}
    Observation(Observation &&other) noexcept
        : m_observer(std::exchange(other.m_observer, nullptr)) {}
    Observation &operator=(Observation &&other) noexcept;
    ~Observation() { stop(); }
    /// Ends the delivery. Idempotent.
    void stop();

private:
    Observer *m_observer = nullptr;
};

/// Whether a handler is also called once when it is registered.
enum class Deliver { Changes, InitialAndChanges };

/// Calls `handler` after each announcement of a key on `keyPath`; with InitialAndChanges also once
/// before returning. Equal values are delivered as well. The observer follows the path: if an
/// object on it is replaced, the new one is observed. Handlers of one key are called in the order
/// of registration.
///
/// The handler is called synchronously, and may stop this or any other observation, add observers,
/// set the key again (which calls it recursively), or delete the object. `object` is not owned and
/// must not be null; discarding the result ends the observation.
[[nodiscard]] PLATFORM_EXPORT Observation observe(QObject *object, const QByteArray &keyPath,
                                                  std::function<void()> handler,
                                                  Deliver deliver = Deliver::Changes);

/// Makes changes behind the key paths of `object`'s class announce the derived keys. Needed only if
/// a key depends on a path through other objects. Must be called once, with `this`, by the
/// constructor of the class that declares the dependencies.
PLATFORM_EXPORT void followDependencies(QObject *object);

/// The signals that one announcement of a key emits: its own first, then those of its dependents,
/// each once and after everything it depends on. One exists per class and signal; it is never
/// deleted.
class AnnouncementPlan;

/// Returns the plan of `object`'s class for the key whose NOTIFY is `signal`. Never null.
/// Thread-safe; computed once for each class and signal. Raises an AssertionFailure if `signal` is
/// the NOTIFY of no key of that class.
PLATFORM_EXPORT const AnnouncementPlan *announcementPlan(QObject *object,
                                                         const QMetaMethod &signal);
/// Emits the signals of `plan` and returns true. Returns false without effect if `plan` is null or
/// belongs to another class than `object`'s.
PLATFORM_EXPORT bool announceBy(const AnnouncementPlan *plan, QObject *object);
/// Returns whether `plan`, which must not be null, emits the signal of its own key only.
PLATFORM_EXPORT bool hasOneSignal(const AnnouncementPlan *plan);

/// Announces a change of the key whose NOTIFY is `Signal`, and of its dependents:
/// `KeyValue::announce<&Note::titleChanged>(this)`. A setter must do this last, because a handler
/// may delete the object, and whether or not the value differs.
template <auto Signal, class Object>
void announce(Object *object) {
    // Most keys have no dependents: announcing them is as fast as emitting the signal.
    static std::atomic<const QMetaObject *> classWithOneSignal = nullptr;
    if constexpr (std::is_invocable_v<decltype(Signal), Object *>) {
        if (object->metaObject() == classWithOneSignal.load(std::memory_order_relaxed)) {
            Q_EMIT(object->*Signal)();
            return;
        }
    }
    static std::atomic<const AnnouncementPlan *> lastPlan = nullptr;
    if (!announceBy(lastPlan.load(std::memory_order_acquire), object)) {
        const AnnouncementPlan *plan = announcementPlan(object, QMetaMethod::fromSignal(Signal));
        lastPlan.store(plan, std::memory_order_release);
        if (hasOneSignal(plan)) {
            classWithOneSignal.store(object->metaObject(), std::memory_order_relaxed);
        }
        announceBy(plan, object);
    }
}

}  // namespace KeyValue
