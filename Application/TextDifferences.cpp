#include "Application/TextDifferences.h"

#include <algorithm>
#include <vector>

namespace {

/// The most pairs of words that are compared.
constexpr qsizetype MostPairs = 4'000'000;

using Words = QList<QStringView>;

/// Returns the words of `text`, and each other character by itself.
Words wordsOf(QStringView text) {
    Words words;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && text[end].isLetterOrNumber()) {
            ++end;
        }
        end = std::max(end, start + 1);
        words.append(text.sliced(start, end - start));
        start = end;
    }
    return words;
}

/// Collects the words of one text that the other text does not have.
class Collector {
public:
    explicit Collector(QList<TextDifferences::Range> &ranges) : m_ranges(ranges) {}

    void skip(qsizetype length) { m_position += length; }
    void add(qsizetype length) {
        if (!m_ranges.isEmpty() &&
            m_ranges.last().position + m_ranges.last().length == m_position) {
            m_ranges.last().length += length;
        } else if (length > 0) {
            m_ranges.append({m_position, length});
        }
        m_position += length;
    }

private:
    QList<TextDifferences::Range> &m_ranges;
    qsizetype m_position = 0;
};

qsizetype lengthOf(const Words &words, qsizetype first, qsizetype end) {
    qsizetype length = 0;
    for (qsizetype i = first; i < end; ++i) {
        length += words[i].size();
    }
    return length;
}

/// The lengths of the longest common sequences of the ends of two lists of words.
class CommonWords {
public:
    CommonWords(const Words &first, const Words &second)
        : m_width(second.size() + 1), m_lengths((first.size() + 1) * m_width) {
        for (qsizetype i = first.size() - 1; i >= 0; --i) {
            for (qsizetype j = second.size() - 1; j >= 0; --j) {
                m_lengths[i * m_width + j] = first[i] == second[j]
                                                 ? of(i + 1, j + 1) + 1
                                                 : std::max(of(i + 1, j), of(i, j + 1));
            }
        }
    }
    int of(qsizetype i, qsizetype j) const { return m_lengths[i * m_width + j]; }

private:
    const qsizetype m_width;
    std::vector<int> m_lengths;
};

void compare(const Words &first, const Words &second, Collector &inFirst, Collector &inSecond) {
    qsizetype i = 0;
    qsizetype j = 0;
    if ((first.size() + 1) * (second.size() + 1) <= MostPairs) {
        const CommonWords common(first, second);
        while (i < first.size() && j < second.size()) {
            if (first[i] == second[j]) {
                inFirst.skip(first[i++].size());
                inSecond.skip(second[j++].size());
            } else if (common.of(i + 1, j) >= common.of(i, j + 1)) {
                inFirst.add(first[i++].size());
            } else {
                inSecond.add(second[j++].size());
            }
        }
    }
    inFirst.add(lengthOf(first, i, first.size()));
    inSecond.add(lengthOf(second, j, second.size()));
}

}  // namespace

TextDifferences TextDifferences::between(const QString &first, const QString &second) {
    Words firstWords = wordsOf(first);
    Words secondWords = wordsOf(second);
    const auto [start, startInSecond] =
        std::mismatch(firstWords.begin(), firstWords.end(), secondWords.begin(), secondWords.end());
    const qsizetype same = start - firstWords.begin();
    const qsizetype length = lengthOf(firstWords, 0, same);
    firstWords.remove(0, same);
    secondWords.remove(0, same);
    while (!firstWords.isEmpty() && !secondWords.isEmpty() &&
           firstWords.last() == secondWords.last()) {
        firstWords.removeLast();
        secondWords.removeLast();
    }
    TextDifferences differences;
    Collector inFirst(differences.inFirst);
    Collector inSecond(differences.inSecond);
    inFirst.skip(length);
    inSecond.skip(length);
    compare(firstWords, secondWords, inFirst, inSecond);
    return differences;
}
