#pragma once

#include <QtCore/QString>

/// The key of the one promise that the broken host breaks; empty if it keeps all.
inline QString brokenPromise;

inline bool breaks(const char *key) {
    return brokenPromise == QString::fromUtf8(key);
}
