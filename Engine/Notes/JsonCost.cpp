#include "Engine/Notes/JsonCost.h"

namespace {

/// Approximate sizes in bytes of what a document consists of, including the room that growing lists
/// leave.
constexpr qint64 Container = 480;
constexpr qint64 Value = 24;
constexpr qint64 String = 8;

/// Returns the position behind the string whose contents begin at `position`, and adds its cost.
qsizetype skipString(const QByteArray &json, qsizetype position, qint64 &cost) {
    qint64 length = 0;
    qint64 bytesPerCharacter = 1;
    for (; position < json.size() && json[position] != '"'; ++position) {
        const bool isEscape = json[position] == '\\' && position + 1 < json.size();
        const bool isNumbered = isEscape && json[position + 1] == 'u';
        // Anything but ASCII is kept in UTF-16.
        if (isNumbered || static_cast<unsigned char>(json[position]) > 0x7f) {
            bytesPerCharacter = 2;
        }
        constexpr qsizetype digits = 4;
        position += isEscape ? 1 : 0;
        position += isNumbered ? digits : 0;
        ++length;
    }
    cost += String + length * bytesPerCharacter;
    return position + 1;
}

}  // namespace

qint64 JsonCost::estimate(const QByteArray &json) {
    qint64 cost = 0;
    for (qsizetype position = 0; position < json.size();) {
        switch (json[position++]) {
            case '"':
                position = skipString(json, position, cost);
                break;
            case '[':
            case '{':
                cost += Container;
                break;
            case ',':
            case ':':
                cost += Value;
                break;
            default:
                break;
        }
    }
    return cost;
}
