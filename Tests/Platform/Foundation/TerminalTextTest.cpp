#include "Platform/Foundation/TerminalText.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include "Support/TestMain.h"

class TerminalTextTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void printableTextStaysUnchanged() {
        const QString text = QStringLiteral("Jürgen’s 茶室 🍵 \\ \"x\" 100% %1");
        QCOMPARE(TerminalText::line(text), text);
        QCOMPARE(TerminalText::lines(text), text);
        QCOMPARE(TerminalText::line({}), QString());
    }

    void isolatesOfNamesAreKept() {
        const QString text = QStringLiteral("«\u2068/home/ida\u2069»");
        QCOMPARE(TerminalText::line(text), text);
        QCOMPARE(TerminalText::lines(text), text);
    }

    void controlCharactersAreEscaped() {
        QCOMPARE(TerminalText::line(QStringLiteral("\x1b]0;owned\a\x1b[2J")),
                 QStringLiteral("\\u001B]0;owned\\u0007\\u001B[2J"));
        for (const char32_t character : {U'\x7f', U'\x9b', U'\x202e', U'\x2066', U'\x200b',
                                         U'\x2028', U'\x2029', U'\r', U'\t', U'\x61c'}) {
            QCOMPARE(TerminalText::line(QString::fromUcs4(&character, 1)),
                     QStringLiteral("\\u%1").arg(QString::number(uint(character), 16).toUpper(), 4,
                                                 u'0'));
        }
        QCOMPARE(TerminalText::line(QStringLiteral("\U000e0001")),
                 QStringLiteral("\\uDB40\\uDC01"));
    }

    void lineFeedsAreKeptOnlyInLines() {
        QCOMPARE(TerminalText::line(QStringLiteral("a\nb")), QStringLiteral("a\\u000Ab"));
        QCOMPARE(TerminalText::lines(QStringLiteral("a\nb\r")), QStringLiteral("a\nb\\u000D"));
    }

    void JSONKeepsItsMeaning() {
        const QJsonDocument document(
            QJsonArray{QStringLiteral("\x1b[2J\x9b\x202e\n\U000e0001\"\\")});
        const QString shown = TerminalText::lines(QString::fromUtf8(document.toJson()));
        QVERIFY(!shown.contains(QChar(0x9b)));
        QVERIFY(!shown.contains(QChar(0x202e)));
        QCOMPARE(QJsonDocument::fromJson(shown.toUtf8()), document);
    }
};

VELMORA_TEST(TerminalTextTest)
#include "TerminalTextTest.moc"
