#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtCore/QPointer>
#include <map>
#include <memory>
#include <vector>

#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/DependencyFollower.h"
#include "Platform/KeyValue/KeyPath.h"
#include "Platform/KeyValue/KeyValue.h"

namespace KeyValue {

namespace {

/// The NOTIFY signal of a key, in the form that QMetaObject::activate takes.
struct Signal {
    const QMetaObject *declaringClass;
    int localIndex;
    bool operator==(const Signal &) const = default;
};

/// The declared dependencies of each derived key of a class.
using Dependencies = QHash<QByteArray, KeyPaths>;

KeyPaths declaredDependencies(QObject *object, const QByteArray &key) {
    const QMetaObject *meta = object->metaObject();
    QByteArray name = key;
    name[0] = QChar::fromLatin1(name[0]).toUpper().toLatin1();
    const int index = meta->indexOfMethod("keyPathsForValuesAffecting" + name + "()");
    KeyPaths result;
    if (index < 0) {
        return result;
    }
    requireParameter(meta->method(index).returnMetaType() == QMetaType::fromType<KeyPaths>(),
                     "key paths are declared as KeyValue::KeyPaths", meta->method(index).name(),
                     meta->className());
    void *arguments[] = {&result};
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, index, arguments);
    for (const QByteArray &path : std::as_const(result)) {
        requireProperty(object, splitKeyPath(path).key);
    }
    return result;
}

Dependencies dependenciesOfClass(QObject *object) {
    const QMetaObject *meta = object->metaObject();
    Dependencies dependencies;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QByteArray key = meta->property(i).name();
        if (const KeyPaths paths = declaredDependencies(object, key); !paths.isEmpty()) {
            dependencies.insert(key, paths);
        }
    }
    return dependencies;
}

/// Returns the keys that depend on one of `sources` (keys or a key path) or on a path through it,
/// in declaration order.
QByteArrayList directDependents(const QMetaObject *meta, const Dependencies &dependencies,
                                const QByteArrayList &sources) {
    const auto isAffected = [&](const QByteArray &path) {
        return std::any_of(sources.begin(), sources.end(), [&](const QByteArray &source) {
            return path == source || path.startsWith(source + '.');
        });
    };
    QByteArrayList result;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QByteArray key = meta->property(i).name();
        const KeyPaths paths = dependencies.value(key);
        if (std::any_of(paths.begin(), paths.end(), isAffected)) {
            result.append(key);
        }
    }
    return result;
}

/// Returns the keys whose NOTIFY is the method with this index.
QByteArrayList keysAnnouncedBy(const QMetaObject *meta, int signalIndex) {
    QByteArrayList keys;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (meta->property(i).notifySignalIndex() == signalIndex) {
            keys.append(meta->property(i).name());
        }
    }
    return keys;
}

/// Returns `key` and the keys that share its NOTIFY: they are announced together.
QByteArrayList keysAnnouncedWith(const QMetaObject *meta, const QByteArray &key) {
    const int signalIndex =
        meta->property(meta->indexOfProperty(key.constData())).notifySignalIndex();
    return signalIndex < 0 ? QByteArrayList{key} : keysAnnouncedBy(meta, signalIndex);
}

/// Appends the direct and indirect dependents of `sources` to `order`, each after all keys that
/// depend on it; the reverse order puts every key after its dependencies. Skips keys in `seen`.
void collectDependents(const QMetaObject *meta, const Dependencies &dependencies,
                       const QByteArrayList &sources, KeyPaths &seen, QByteArrayList &order) {
    QByteArrayList dependents = directDependents(meta, dependencies, sources);
    std::reverse(dependents.begin(), dependents.end());
    for (const QByteArray &key : std::as_const(dependents)) {
        if (seen.contains(key)) {
            continue;
        }
        const QByteArrayList together = keysAnnouncedWith(meta, key);
        seen.unite({together.begin(), together.end()});
        collectDependents(meta, dependencies, together, seen, order);
        order.append(key);
    }
}

}  // namespace

class AnnouncementPlan {
public:
    AnnouncementPlan(QObject *object, const QByteArrayList &keys) : m_class(object->metaObject()) {
        for (const QByteArray &key : keys) {
            append(requireProperty(object, key));
        }
    }

    bool isFor(const QObject *object) const { return object->metaObject() == m_class; }
    bool hasOneSignal() const { return m_signals.size() == 1; }

    void announce(QObject *object) const {
        if (m_signals.size() == 1) {
            activate(object, m_signals.front());
            return;
        }
        const QPointer<QObject> alive(object);
        for (const Signal &signal : m_signals) {
            if (!alive) {
                return;
            }
            activate(object, signal);
        }
    }

private:
    void append(const QMetaProperty &property) {
        if (!property.hasNotifySignal()) {
            return;
        }
        const QMetaMethod method = property.notifySignal();
        requireParameter(method.parameterCount() == 0, "a NOTIFY signal has no arguments",
                         method.name(), "Platform/KeyValue/Announcement");
        const QMetaObject *declaring = method.enclosingMetaObject();
        const Signal signal{declaring, method.methodIndex() - declaring->methodOffset()};
        if (std::find(m_signals.begin(), m_signals.end(), signal) == m_signals.end()) {
            m_signals.push_back(signal);
        }
    }

    static void activate(QObject *object, const Signal &signal) {
        void *noArguments[] = {nullptr};
        QMetaObject::activate(object, signal.declaringClass, signal.localIndex, noArguments);
    }

    const QMetaObject *m_class;
    std::vector<Signal> m_signals;
};

namespace {

/// Returns the plan for a change of `sources`: keys of the class, which are announced as well, or a
/// key path.
AnnouncementPlan makePlan(QObject *object, const QByteArrayList &sources) {
    KeyPaths seen(sources.begin(), sources.end());
    QByteArrayList keys;
    collectDependents(object->metaObject(), dependenciesOfClass(object), sources, seen, keys);
    if (!sources.constFirst().contains('.')) {
        keys.append(sources.constFirst());
    }
    std::reverse(keys.begin(), keys.end());
    return {object, keys};
}

/// Returns the plan from a cache for all classes. Thread-safe.
const AnnouncementPlan *cachedPlan(QObject *object, const QByteArrayList &sources) {
    using Key = std::pair<const QMetaObject *, QByteArrayList>;
    static QMutex mutex;
    static std::map<Key, std::unique_ptr<const AnnouncementPlan>> plans;
    const QMutexLocker lock(&mutex);
    auto &plan = plans[{object->metaObject(), sources}];
    if (!plan) {
        plan = std::make_unique<const AnnouncementPlan>(makePlan(object, sources));
    }
    return plan.get();
}

}  // namespace

const AnnouncementPlan *announcementPlan(QObject *object, const QMetaMethod &signal) {
    const QMetaObject *meta = object->metaObject();
    const QByteArrayList keys = keysAnnouncedBy(meta, signal.methodIndex());
    if (keys.isEmpty()) {
        failAssertion(
            QStringLiteral("No key of %1 is announced by %2")
                .arg(QLatin1StringView(meta->className()), QString::fromUtf8(signal.name())),
            "KeyValue::announce", "Platform/KeyValue/Announcement");
    }
    return cachedPlan(object, keys);
}

const AnnouncementPlan *planForPath(QObject *object, const QByteArray &path) {
    return cachedPlan(object, {path});
}

bool announceBy(const AnnouncementPlan *plan, QObject *object) {
    if (!plan || !plan->isFor(object)) {
        return false;
    }
    plan->announce(object);
    return true;
}

bool hasOneSignal(const AnnouncementPlan *plan) {
    return plan->hasOneSignal();
}

void followDependencies(QObject *object) {
    // Sorted, so that the order of announcements is deterministic.
    QByteArrayList paths;
    for (const KeyPaths &declared : dependenciesOfClass(object)) {
        for (const QByteArray &path : declared) {
            if (path.contains('.') && !paths.contains(path)) {
                paths.append(path);
            }
        }
    }
    std::sort(paths.begin(), paths.end());

    for (const QByteArray &path : std::as_const(paths)) {
        new DependencyFollower(object, path);
    }
}

}  // namespace KeyValue
