#pragma once

#include <QtCore/QString>
#include <optional>

#include "Host/HostExport.h"
#include "Host/HostVersion.h"

/// Base of all class objects. A class object implements the operations of a host class that need no
/// instance, such as creating one. Each host class with such operations declares them as a nested
/// `Class`; a host implements that and registers it with HostClassRegistration under its `Name`,
/// which is that of the host class.
class HOST_EXPORT HostClass {
public:
    virtual ~HostClass();
};

/// Returns the class object that is registered under `name`, or nullptr if there is none. The host
/// that registered it owns it; it is valid until its registration is destroyed. Thread-safe, but
/// the caller must ensure that the host does not remove the registration while the object is used:
/// use class objects on the main thread, where hosts register and remove them.
HOST_EXPORT HostClass *NSClassFromString(const QString &name);

/// Registers `classObject` under `name` from construction to destruction. A host keeps one
/// registration with each class object, which must outlive it and must not be null. Raises an
/// AssertionFailure if `name` is registered already; the first registration then stays in effect.
/// Create and destroy it on the main thread.
class HOST_EXPORT HostClassRegistration {
public:
    /// Names are compared with case. `version` is that of the headers that the host was compiled
    /// with; do not pass it.
    HostClassRegistration(const QString &name, HostClass *classObject,
                          HostVersion version = CurrentHostVersion);
    /// Registers `classObject` under the `Name` of its class.
    template <class ClassObject>
    explicit HostClassRegistration(ClassObject *classObject)
        : HostClassRegistration(ClassObject::Name, classObject) {}
    ~HostClassRegistration();
    HostClassRegistration(const HostClassRegistration &) = delete;
    HostClassRegistration &operator=(const HostClassRegistration &) = delete;

private:
    const QString m_name;
};

/// Returns the version of the interface that the host of the class object `name` was compiled with,
/// or std::nullopt if there is none of that name. Thread-safe.
HOST_EXPORT std::optional<HostVersion> hostVersionOfClass(const QString &name);

/// Returns the class object that is registered under the `Name` of `ClassObject`, or null if there
/// is none or it is not a `ClassObject`. For classes that a host may leave out.
template <class ClassObject>
ClassObject *optionalHostClass() {
    return dynamic_cast<ClassObject *>(NSClassFromString(ClassObject::Name));
}

/// Raises an AssertionFailure that says that the host has no class `name`. Used by
/// requiredHostClass().
[[noreturn]] HOST_EXPORT void failForMissingHostClass(const QString &name);

/// Returns the class object that is registered under the `Name` of `ClassObject`. Raises an
/// AssertionFailure if there is none or if it is not a `ClassObject`. For classes that the pane has
/// found when it was loaded; use optionalHostClass() for others.
template <class ClassObject>
ClassObject &requiredHostClass() {
    auto *classObject = optionalHostClass<ClassObject>();
    if (!classObject) {
        failForMissingHostClass(ClassObject::Name);
    }
    return *classObject;
}
