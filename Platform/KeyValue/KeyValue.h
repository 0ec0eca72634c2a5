#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <atomic>
#include <functional>
#include <utility>

#include "Platform/KeyValue/SharedPointer.h"
#include "Platform/PlatformExport.h"

/// Key-value coding, observing and announcing over Qt properties.
///
/// A key is a Q_PROPERTY; its NOTIFY signal, without arguments, is the wire on which changes
/// travel, so that QSignalSpy and plain connections see them too. A key without NOTIFY can be read
/// and bound, but never announces. A key path is keys joined by points
/// ("representedObject.schedule"); each key but the last must hold a QObject, by pointer or
/// std::shared_ptr, or nothing.
///
/// A class declares on what a derived key depends through
///     Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDatabases();
/// for the key "databases". Whoever announces a key thereby announces its dependents.
///
/// Nothing is locked: a change is delivered directly, on the thread that announces it.
/// A key that does not exist, a value of a type that does not fit it, and a key on the way that
/// holds something else than an object raise an AssertionFailure. So may a handler: it passes
/// through the setter that announced, and whoever was not told yet is not told of that change.
namespace KeyValue {

using KeyPaths = QSet<QByteArray>;

class Observer;

/// The value at `keyPath`, or an invalid variant where an object on the way is absent.
PLATFORM_EXPORT QVariant value(const QObject *object, const QByteArray &keyPath);

/// Writes `value` (an invalid variant: absent) to the last key. Nothing happens where an object on
/// the way is absent.
PLATFORM_EXPORT void setValue(QObject *object, const QByteArray &keyPath, const QVariant &value);

/// Whether `keyPath` can be written now: every object on the way is there and the last key has a
/// setter.
PLATFORM_EXPORT bool isWritable(const QObject *object, const QByteArray &keyPath);

/// Whether `value` stands for nothing: invalid, a null pointer, an empty optional error, an invalid
/// date, a nil URL.
PLATFORM_EXPORT bool isAbsent(const QVariant &value);

/// The QObject that `value` holds by raw or shared pointer, or nullptr.
PLATFORM_EXPORT QObject *objectValue(const QVariant &value);

/// A registration of an observer. Destroying it stops the delivery at once, also from inside the
/// handler; it may outlive the observed object, of which nothing is delivered any more. Movable,
/// not copyable.
class PLATFORM_EXPORT Observation {
public:
    Observation() = default;
    explicit Observation(Observer *observer) : m_observer(observer) {}
    Observation(Observation &&other) noexcept
        : m_observer(std::exchange(other.m_observer, nullptr)) {}
    Observation &operator=(Observation &&other) noexcept;
    ~Observation() { stop(); }
    void stop();

private:
    Observer *m_observer = nullptr;
};

enum class Deliver { Changes, InitialAndChanges };

/// Calls `handler` after each announcement along `keyPath`; with InitialAndChanges also once before
/// returning. Equal values are delivered too. The handler may stop this or any observation, add
/// others, set the key again, or delete the object.
[[nodiscard]] PLATFORM_EXPORT Observation observe(QObject *object, const QByteArray &keyPath,
                                                  std::function<void()> handler,
                                                  Deliver deliver = Deliver::Changes);

/// Makes changes behind key paths announce: for a class whose keys depend on paths through other
/// objects. Called once, by the constructor of that class, with `object` the one under
/// construction.
PLATFORM_EXPORT void followDependencies(QObject *object);

/// What one announcement of a key sends: its own signal, then its dependents', each once and after
/// everything it depends on. Belongs to a class and lives as long as the program.
class AnnouncementPlan;

/// The plan of `object`'s class for the key whose NOTIFY is `signal`.
PLATFORM_EXPORT const AnnouncementPlan *announcementPlan(QObject *object,
                                                         const QMetaMethod &signal);
/// Announces as `plan` says; false, and nothing is announced, where it is not a plan of `object`'s
/// class.
PLATFORM_EXPORT bool announceBy(const AnnouncementPlan *plan, QObject *object);

/// Announces a change of the key whose NOTIFY is `Signal`, and of its dependents:
/// `KeyValue::announce<&QVSyncState::enabledChanged>(this)`. A setter does this last, whether or
/// not the value differs.
template <auto Signal, class Object>
void announce(Object *object) {
    static std::atomic<const AnnouncementPlan *> lastPlan = nullptr;
    if (!announceBy(lastPlan.load(std::memory_order_acquire), object)) {
        const AnnouncementPlan *plan = announcementPlan(object, QMetaMethod::fromSignal(Signal));
        lastPlan.store(plan, std::memory_order_release);
        announceBy(plan, object);
    }
}

}  // namespace KeyValue
