#pragma once

#include <QtCore/QString>
#include <map>
#include <mutex>

#include "Engine/Foundation/Turn.h"

/// A turn for each key, such as an account. Thread-safe.
class Turns {
public:
    /// Returns the turn of `key`, which is valid as long as this object.
    Turn &turn(const QString &key) {
        const std::lock_guard lock(m_mutex);
        return m_turns[key];
    }

private:
    std::mutex m_mutex;
    std::map<QString, Turn> m_turns;
};
