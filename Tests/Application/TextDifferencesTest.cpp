#include "Application/TextDifferences.h"

#include <random>

#include "Support/TestMain.h"

class TextDifferencesTest : public QObject {
    Q_OBJECT
private:
    static QStringList parts(const QString &text, const QList<TextDifferences::Range> &ranges) {
        QStringList parts;
        for (const TextDifferences::Range &range : ranges) {
            parts.append(text.mid(range.position, range.length));
        }
        return parts;
    }
    static QString without(QString text, const QList<TextDifferences::Range> &ranges) {
        for (auto range = ranges.crbegin(); range != ranges.crend(); ++range) {
            text.remove(range->position, range->length);
        }
        return text;
    }

private Q_SLOTS:
    void theWordsThatDifferAreFound_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::addColumn<QStringList>("inFirst");
        QTest::addColumn<QStringList>("inSecond");
        const auto row = [](const char *name, const char *first, const char *second,
                            const char *inFirst, const char *inSecond) {
            const auto list = [](const char *parts) {
                return QString::fromLatin1(parts).split(u'|', Qt::SkipEmptyParts);
            };
            QTest::newRow(name) << QString::fromLatin1(first) << QString::fromLatin1(second)
                                << list(inFirst) << list(inSecond);
        };
        row("equal", "one two", "one two", "", "");
        row("empty", "", "", "", "");
        row("all", "one", "two", "one", "two");
        row("one is empty", "", "one two", "", "one two");
        row("in the middle", "buy two eggs", "buy ten eggs", "two", "ten");
        row("at the end", "eggs", "eggs, milk", "", ", milk");
        row("at the beginning", "fresh eggs", "eggs", "fresh ", "");
        row("in two places", "a b c d e", "a x c d y", "b|e", "x|y");
        row("a line", "one\ntwo\nthree", "one\nthree", "two\n", "");
    }
    void theWordsThatDifferAreFound() {
        QFETCH(QString, first);
        QFETCH(QString, second);
        const auto differences = TextDifferences::between(first, second);
        QTEST(parts(first, differences.inFirst), "inFirst");
        QTEST(parts(second, differences.inSecond), "inSecond");
    }

    void theTextsAreEqualWithoutTheirDifferences() {
        std::mt19937 random(22);
        const auto text = [&] {
            QString text;
            const int count = std::uniform_int_distribution<int>(0, 40)(random);
            for (int i = 0; i < count; ++i) {
                text += QStringView(u"ab \n.").at(std::uniform_int_distribution<int>(0, 4)(random));
            }
            return text;
        };
        for (int round = 0; round < 2000; ++round) {
            const QString first = text();
            const QString second = text();
            const auto differences = TextDifferences::between(first, second);
            QCOMPARE(without(first, differences.inFirst), without(second, differences.inSecond));
        }
    }

    void hugeTextsAreComparedSoon() {
        const QString word = QStringLiteral("word ");
        const QString first = u'a' + word.repeated(500'000) + u'a';
        const QString second = u'b' + word.repeated(400'000) + u'b';
        QElapsedTimer time;
        time.start();
        const auto differences = TextDifferences::between(first, second);
        QCOMPARE_LT(time.elapsed(), 5000);
        QCOMPARE(without(first, differences.inFirst), without(second, differences.inSecond));
    }
};

VELMORA_TEST(TextDifferencesTest)
#include "TextDifferencesTest.moc"
