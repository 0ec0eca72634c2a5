#include "Host/ClassRegistry.h"

#include <QtCore/QHash>
#include <QtCore/QMutex>

#include "Platform/Foundation/Assertion.h"

static_assert(CurrentHostVersion.major == HOST_SOVERSION,
              "The libraries have the major version of the interface");

namespace {

struct Entry {
    HostClass *classObject = nullptr;
    HostVersion version;
};

struct Registry {
    QMutex mutex;
    QHash<QString, Entry> classes;
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
    return registry().classes.value(name).classObject;
}

std::optional<HostVersion> hostVersionOfClass(const QString &name) {
    const QMutexLocker lock(&registry().mutex);
    const auto found = registry().classes.constFind(name);
    return found == registry().classes.cend() ? std::nullopt : std::optional(found->version);
}

HostClassRegistration::HostClassRegistration(const QString &name, HostClass *classObject,
                                             HostVersion version)
    : m_name(name) {
    const QMutexLocker lock(&registry().mutex);
    requireParameter(!registry().classes.contains(name), "the class is not registered yet",
                     "HostClassRegistration::HostClassRegistration", "Host/ClassRegistry");
    registry().classes.insert(name, {classObject, version});
}

HostClassRegistration::~HostClassRegistration() {
    const QMutexLocker lock(&registry().mutex);
    registry().classes.remove(m_name);
}

void failForMissingHostClass(const QString &name) {
    failAssertion(QStringLiteral("The sync plug-in has no class \"%1\"").arg(name),
                  "requiredHostClass", "Host/ClassRegistry");
}
