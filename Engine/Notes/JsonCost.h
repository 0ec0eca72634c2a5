#pragma once

#include <QtCore/QByteArray>

/// The memory that a JSON document takes. Thread-safe.
namespace JsonCost {

/// Returns roughly how many bytes QJsonDocument allocates for `json`, which may be hostile and need
/// not be valid. Does not parse it; takes O(n) and no memory.
qint64 estimate(const QByteArray &json);

}  // namespace JsonCost
