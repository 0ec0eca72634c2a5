#include "Engine/Notes/JsonCost.h"

#include <algorithm>
#include <cstring>

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
    const char *end;
    qint64 length;
};

/// Returns where `character` is first, or `end`.
const char *find(const char *begin, const char *end, char character) {
    const void *const found = std::memchr(begin, character, static_cast<size_t>(end - begin));
    return found ? static_cast<const char *>(found) : end;
}

/// Returns the string whose contents begin at `position`.
String stringAt(const char *position, const char *end) {
    qint64 length = 0;
    const char *quote = find(position, end, '"');
    for (const char *escape = find(position, quote, '\\'); escape != quote;
         escape = find(position, quote, '\\')) {
        constexpr qsizetype numbered = 6;
        const bool isNumbered = end - escape > 1 && escape[1] == 'u';
        length += escape - position + 1;
        position = escape + std::min<qsizetype>(isNumbered ? numbered : 2, end - escape);
        quote = position > quote ? find(position, end, '"') : quote;
    }
    return {quote == end ? end : quote + 1, length + (quote - position)};
}

}  // namespace

qint64 JsonCost::estimate(const QByteArray &json, qsizetype longestString, qint64 limit) {
    qint64 cost = 0;
    const char *const end = json.constData() + json.size();
    for (const char *position = json.constData(); position != end && cost <= limit;) {
        switch (*position++) {
            case '"': {
                const String string = stringAt(position, end);
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
