#include "Engine/Notes/JsonCost.h"

#include <algorithm>

namespace {

/// Approximate sizes in bytes of what a document consists of, including the room that growing lists
/// leave.
constexpr qint64 Container = 480;
constexpr qint64 Value = 24;
/// A short string in the document, and the array of bytes that is made of it.
constexpr qint64 ShortString = 112;
/// For each character of a long string: it is decoded to UTF-16, and copied.
constexpr qint64 LongCharacter = 4;

struct String {
    /// The position behind it.
    qsizetype end;
    qint64 length;
};

/// Returns the string whose contents begin at `position`.
String stringAt(const QByteArray &json, qsizetype position) {
    qint64 length = 0;
    for (; position < json.size() && json[position] != '"'; ++position) {
        const bool isEscape = json[position] == '\\' && position + 1 < json.size();
        const bool isNumbered = isEscape && json[position + 1] == 'u';
        constexpr qsizetype digits = 4;
        position += isEscape ? 1 : 0;
        position += isNumbered ? digits : 0;
        ++length;
    }
    return {position + 1, length};
}

}  // namespace

qint64 JsonCost::estimate(const QByteArray &json, qsizetype longestString, qint64 limit) {
    qint64 cost = 0;
    for (qsizetype position = 0; position < json.size() && cost <= limit;) {
        switch (json[position++]) {
            case '"': {
                const String string = stringAt(json, position);
                position = string.end;
                cost += ShortString +
                        LongCharacter * std::max(string.length - longestString, qint64(0));
                break;
            }
            case '[':
            case '{':
                cost += Container;
                break;
            case ',':
            case ':':
                cost += Value;
                break;
            default:
                // Such as blanks, of which there is no need for many.
                ++cost;
                break;
        }
    }
    return cost;
}
