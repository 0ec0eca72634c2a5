#pragma once

#include <QtCore/QObject>

#include "Platform/Foundation/Assertion.h"

/// Returns the descendant of `parent` that has the class `Child` and the object name `name`.
/// Raises an AssertionFailure if there is none. The child remains owned by its parent.
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
