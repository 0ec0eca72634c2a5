#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <memory>

/// One end of a binding: an object that is kept alive if its ownership is shared, and otherwise
/// only guarded, because another object owns it. A value; copies share ownership. Must be used on
/// the main thread.
class BoundObject {
public:
    /// Guards an object that is owned elsewhere, such as by a form. Null is allowed. Implicit, so
    /// that a plain pointer can be passed.
    BoundObject(QObject *object) : m_object(object) {}  // NOLINT(google-explicit-constructor)
    /// Shares ownership of an object, whose class must derive from QObject. Null is allowed. The
    /// object stays alive as long as a copy of this value.
    template <class Shared>
    BoundObject(const std::shared_ptr<Shared> &object)  // NOLINT(google-explicit-constructor)
        : m_object(object.get()), m_shared(object) {}

    /// Returns the object; null once it is destroyed. Not owned by the caller: do not keep it
    /// beyond the current call.
    QObject *get() const { return m_object; }

private:
    QPointer<QObject> m_object;
    std::shared_ptr<QObject> m_shared;
};
