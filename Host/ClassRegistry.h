#pragma once

#include <QtCore/QString>

#include "Host/HostExport.h"

/// A class object: what the class of a name can do without an instance. Each host class that has
/// such operations declares its own as a nested `Class`; a host implements and registers it.
class HOST_EXPORT HostClass {
public:
    virtual ~HostClass();
};

/// The class object registered under `name`, or nullptr. It belongs to whoever registered it. Any
/// thread.
HOST_EXPORT HostClass *NSClassFromString(const QString &name);

/// Registers `classObject` under `name` while it exists: a host keeps one of these beside each of
/// its class objects. Registering a second class of the same name is a programming error.
class HOST_EXPORT HostClassRegistration {
public:
    HostClassRegistration(const QString &name, HostClass *classObject);
    ~HostClassRegistration();
    HostClassRegistration(const HostClassRegistration &) = delete;
    HostClassRegistration &operator=(const HostClassRegistration &) = delete;

private:
    const QString m_name;
};

[[noreturn]] HOST_EXPORT void failForMissingHostClass(const QString &name);

/// The class object of `name`, which must be there and must be a `ClassObject`; otherwise raises an
/// AssertionFailure. For classes whose presence was tested when the pane was loaded.
template <class ClassObject>
ClassObject &requiredHostClass(const QString &name) {
    auto *classObject = dynamic_cast<ClassObject *>(NSClassFromString(name));
    if (!classObject) {
        failForMissingHostClass(name);
    }
    return *classObject;
}
