#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

/// The words in which two texts differ. A value; thread-safe.
struct TextDifferences {
    /// Characters of a text that are not in the other one.
    struct Range {
        /// Both count UTF-16 code units, as QString does.
        qsizetype position = 0;
        qsizetype length = 0;
        bool operator==(const Range &) const = default;
    };
    /// In ascending order, not empty, without overlaps.
    QList<Range> inFirst;
    QList<Range> inSecond;

    /// Compares two texts word by word. Takes bounded time: of long texts that differ much, more is
    /// different than necessary.
    static TextDifferences between(const QString &first, const QString &second);
};
