#pragma once

#include <QtCore/QByteArray>

/// The memory that parsing a JSON document takes. Thread-safe.
namespace JsonCost {

/// Returns roughly how many bytes QJsonDocument and what is made of it allocate for `json` besides
/// the characters of strings of up to `longestString` bytes: `json` may be hostile and need not be
/// valid. Stops when that exceeds `limit`, and returns what has been counted. Does not parse
/// `json`; takes O(n) and no memory.
qint64 estimate(const QByteArray &json, qsizetype longestString, qint64 limit);

}  // namespace JsonCost
