#include "Host/ClassRegistry.h"

#include <QtCore/QHash>
#include <QtCore/QMutex>

#include "Platform/Foundation/Assertion.h"

namespace {

struct Registry {
    QMutex mutex;
    QHash<QString, HostClass *> classes;
};

Registry &registry() {
    // Not destroyed, since registrations may end after the static objects of this file.
    static auto *const shared = new Registry;
    return *shared;
}

}  // namespace

HostClass::~HostClass() = default;

HostClass *NSClassFromString(const QString &name) {
    const QMutexLocker lock(&registry().mutex);
    return registry().classes.value(name);
}

HostClassRegistration::HostClassRegistration(const QString &name, HostClass *classObject)
    : m_name(name) {
    const QMutexLocker lock(&registry().mutex);
    requireParameter(!registry().classes.contains(name), "the class is not registered yet",
                     "HostClassRegistration::HostClassRegistration", "Host/ClassRegistry");
    registry().classes.insert(name, classObject);
}

HostClassRegistration::~HostClassRegistration() {
    const QMutexLocker lock(&registry().mutex);
    registry().classes.remove(m_name);
}

void failForMissingHostClass(const QString &name) {
    failAssertion(QStringLiteral("The sync plug-in has no class \"%1\"").arg(name),
                  "requiredHostClass", "Host/ClassRegistry");
}
