#pragma once

#include <QtCore/QVariant>

#include "Platform/Foundation/UserDefaults.h"

/// Sets a user default; ends the test program if it cannot be written.
inline void setDefault(const QString &key, const QVariant &value) {
    if (const Expected<void> set = UserDefaults::setValue(key, value); !set) {
        qFatal("%s", qPrintable(set.error().localizedFailureReason));
    }
}

/// Removes a default that a test has set.
inline void removeDefault(const QString &key) {
    if (const auto removed = UserDefaults::remove(key); !removed) {
        qFatal("%s", qPrintable(removed.error().localizedFailureReason));
    }
}
