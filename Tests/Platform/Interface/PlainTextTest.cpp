#include "Platform/Interface/PlainText.h"

#include <QtWidgets/QLabel>

#include "Support/TestMain.h"

class PlainTextTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aPageIsTheTextUnlessItIsTooLong() {
        for (const QString &text :
             {QString(), QStringLiteral("a"), QStringLiteral("\n"), QStringLiteral("a\r\n\nb\rc"),
              QString(QChar::ParagraphSeparator) + u'a', QString(PlainText::LongestLine, u'x')}) {
            QCOMPARE(PlainText::page(text), text);
        }
    }

    void textBeyondAPageIsLeftOut() {
        const QChar ellipsis(0x2026);
        const QString longest(PlainText::LongestLine, u'x');
        QCOMPARE(PlainText::page(longest + QStringLiteral("y\nb")),
                 longest + ellipsis + QStringLiteral("\nb"));
        const QString lines(PlainText::MostLines, u'\n');
        QCOMPARE(PlainText::page(lines), lines);
        QCOMPARE(PlainText::page(lines + u'a'), lines + ellipsis);
    }

    void aMessageIsShort() {
        const QString text(PlainText::LongestMessage, u'x');
        QCOMPARE(PlainText::message(text), text);
        QCOMPARE(PlainText::message(text + u'y'), text + QChar(0x2026));
        QVERIFY(PlainText::toolTip(QString(8 << 20, u'<')).size() < 10 * PlainText::LongestMessage);
    }

    void aLabelShowsMarkupAsItIs() {
        const std::unique_ptr<QLabel> label(PlainText::label(QStringLiteral("<b>x</b>")));
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QCOMPARE(label->text(), QStringLiteral("<b>x</b>"));
    }
};

VELMORA_TEST(PlainTextTest)
#include "PlainTextTest.moc"
