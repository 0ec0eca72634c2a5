#pragma once

#include <QtCore/QByteArray>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What the fuzz targets share.
namespace FuzzInput {

/// Separates the parts of an input; occurs in no text in UTF-8.
inline const QByteArray Separator("\xff\xfe");
/// The size in bytes to which an input is expanded.
inline constexpr qsizetype ExpandedSize = 256 << 10;

/// Aborts with `promise` unless `isKept`.
inline void require(bool isKept, const char *promise) {
    if (!isKept) {
        std::fprintf(stderr, "Broken: %s\n", promise);
        std::abort();
    }
}

inline QByteArray bytes(const uint8_t *data, size_t size) {
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Returns the input; if it consists of three parts, the second is repeated until the result has
/// about ExpandedSize bytes, so that short inputs find work that is not linear.
inline QByteArray expanded(const QByteArray &input) {
    const qsizetype first = input.indexOf(Separator);
    const qsizetype second = first < 0 ? -1 : input.indexOf(Separator, first + Separator.size());
    if (second < 0) {
        return input;
    }
    const qsizetype begin = first + Separator.size();
    const QByteArray repeated = input.mid(begin, second - begin);
    const qsizetype times = ExpandedSize / (repeated.size() + 1);
    return input.first(first) + repeated.repeated(times) + input.mid(second + Separator.size());
}

}  // namespace FuzzInput
