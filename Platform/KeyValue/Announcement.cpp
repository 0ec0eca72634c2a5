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

/// The NOTIFY signal of a key, ready to be activated.
struct Signal {
    const QMetaObject *declaringClass;
    int localIndex;
    bool operator==(const Signal &) const = default;
};

/// What each derived key of a class depends on.
using Dependencies = QHash<QByteArray, KeyPaths>;

KeyPaths declaredDependencies(QObject *object, const QByteArray &key) {
    const QMetaObject *meta = object->metaObject();
    QByteArray name = key;
    name[0] = QChar::fromLatin1(name[0]).toUpper().toLatin1();
    const int index = meta->indexOfMethod("keyPathsForValuesAffecting" + name + "()");
    KeyPaths result;
    if (index >= 0 && meta->method(index).returnMetaType() == QMetaType::fromType<KeyPaths>()) {
        void *arguments[] = {&result};
        QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, index, arguments);
    }
    return result;
}

Dependencies dependenciesOfClass(QObject *object) {
    const QMetaObject *meta = object->metaObject();
    Dependencies dependencies;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QByteArray key = meta->property(i).name();
        if (KeyPaths paths = declaredDependencies(object, key); !paths.isEmpty()) {
            dependencies.insert(key, std::move(paths));
        }
    }
    return dependencies;
}

/// The keys that depend on `source` (a key or a key path) or on a path through it, in declared
/// order.
QByteArrayList directDependents(const QMetaObject *meta, const Dependencies &dependencies,
                                const QByteArray &source) {
    QByteArrayList result;
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QByteArray key = meta->property(i).name();
        const KeyPaths paths = dependencies.value(key);
        const bool depends = std::any_of(paths.begin(), paths.end(), [&](const QByteArray &path) {
            return path == source || path.startsWith(source + '.');
        });
        if (depends && !result.contains(key)) {
            result.append(key);
        }
    }
    return result;
}

/// Appends to `order` the dependents of `source` and theirs, each after all that depend on it:
/// reversed, that puts every key after what it depends on.
void collectDependents(const QMetaObject *meta, const Dependencies &dependencies,
                       const QByteArray &source, QByteArrayList &order) {
    QByteArrayList dependents = directDependents(meta, dependencies, source);
    std::reverse(dependents.begin(), dependents.end());
    for (const QByteArray &key : std::as_const(dependents)) {
        if (!order.contains(key)) {
            collectDependents(meta, dependencies, key, order);
            order.append(key);
        }
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

/// The plan for a change at `source`: of that key itself, where it is one, and of its dependents.
AnnouncementPlan makePlan(QObject *object, const QByteArray &source) {
    const QMetaObject *meta = object->metaObject();
    QByteArrayList keys;
    collectDependents(meta, dependenciesOfClass(object), source, keys);
    if (!source.contains('.')) {
        keys.append(source);
    }
    std::reverse(keys.begin(), keys.end());
    return {object, keys};
}

/// The plans of all classes, made when first needed.
const AnnouncementPlan *cachedPlan(QObject *object, const QByteArray &source) {
    using Key = std::pair<const QMetaObject *, QByteArray>;
    static QMutex mutex;
    static std::map<Key, std::unique_ptr<const AnnouncementPlan>> plans;
    const QMutexLocker lock(&mutex);
    auto &plan = plans[{object->metaObject(), source}];
    if (!plan) {
        plan = std::make_unique<const AnnouncementPlan>(makePlan(object, source));
    }
    return plan.get();
}

QByteArray keyAnnouncedBy(const QMetaObject *meta, const QMetaMethod &signal) {
    for (int i = 0; i < meta->propertyCount(); ++i) {
        if (meta->property(i).notifySignalIndex() == signal.methodIndex()) {
            return meta->property(i).name();
        }
    }
    failAssertion(QStringLiteral("No key of %1 is announced by %2")
                      .arg(QLatin1StringView(meta->className()), QString::fromUtf8(signal.name())),
                  "KeyValue::announce", "Platform/KeyValue/Announcement");
}

}  // namespace

const AnnouncementPlan *announcementPlan(QObject *object, const QMetaMethod &signal) {
    return cachedPlan(object, keyAnnouncedBy(object->metaObject(), signal));
}

bool isPlanFor(const AnnouncementPlan *plan, const QObject *object) {
    return plan && plan->isFor(object);
}

void announce(const AnnouncementPlan *plan, QObject *object) {
    plan->announce(object);
}

void followDependencies(QObject *object) {
    // Sorted, so that every run announces in the same order.
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
        const auto [head, rest] = splitKeyPath(path);
        new DependencyFollower(object, head, rest, cachedPlan(object, path));
    }
}

}  // namespace KeyValue
