#pragma once

#include <QtCore/QObject>

#include "Platform/Foundation/Assertion.h"

/// Returns the descendant of `parent`, at any depth, that has the class `Child` (or is derived from
/// it) and the object name `name`, or any if that is null; the first one if there are several.
/// Raises an AssertionFailure if there is none, which is an error in the form. The child remains
/// owned by its parent; the reference is valid as long as the child. Must be called on the thread
/// of `parent`.
template <class Child>
Child &requiredChild(const QObject &parent, const QString &name) {
    auto *child = parent.findChild<Child *>(name);
    if (!child) {
        failAssertion(QStringLiteral("\"%1\" has no %2 \"%3\"")
                          .arg(parent.objectName(),
                               QLatin1StringView(Child::staticMetaObject.className()), name),
                      "requiredChild", "Platform/Interface/RequiredChild");
    }
    return *child;
}
