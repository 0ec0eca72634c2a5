#include "Platform/Interface/Contrast.h"

#include <QtGui/QPalette>

#include "Support/TestMain.h"

class ContrastTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theRatioIsThatOfTheGuidelines() {
        QCOMPARE(Contrast::ratio(Qt::black, Qt::white), 21.0);
        QCOMPARE(Contrast::ratio(Qt::white, Qt::white), 1.0);
        QVERIFY(qAbs(Contrast::ratio(QColor(0x76, 0x76, 0x76), Qt::white) - 4.54) < 0.01);
    }

    void aTransparentColorIsBlendedWithItsGround() {
        QCOMPARE(Contrast::blended(QColor(0, 0, 0, 51), Qt::white), QColor(204, 204, 204));
        QCOMPARE(Contrast::blended(Qt::red, Qt::white), QColor(Qt::red));
    }

    void onlyATextThatNeedsItBecomesLessTransparent() {
        const QColor clear(0, 0, 0, 165);
        QCOMPARE(Contrast::legible(clear, Qt::white), clear);
        const QColor faint = Contrast::legible(QColor(0, 0, 0, 128), Qt::white);
        QVERIFY(Contrast::ratio(Contrast::blended(faint, Qt::white), Qt::white) >= 4.5);
        QVERIFY(faint.alpha() < 145);
        QCOMPARE(Contrast::legible(QColor(250, 250, 250, 10), Qt::white).alpha(), 255);
    }

    void anOutlineCanBeSeenOnItsWindow() {
        for (const QColor &window : {QColor(0xef, 0xef, 0xef), QColor(0x2a, 0x2a, 0x2c)}) {
            const QPalette palette(window);
            const double ratio = Contrast::ratio(Contrast::outline(palette), window);
            QVERIFY2(ratio >= 3 && ratio < 8, qPrintable(QString::number(ratio)));
        }
    }

    void selectionsAndPlaceholdersBecomeLegible() {
        QPalette palette;
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Highlight, QColor(0x30, 0x8c, 0xc6));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
        const QPalette legible = Contrast::withLegibleTexts(palette);
        QVERIFY(Contrast::ratio(legible.color(QPalette::Highlight), Qt::white) >= 4.5);
        QCOMPARE(legible.color(QPalette::HighlightedText), QColor(Qt::white));
        QVERIFY(legible.color(QPalette::PlaceholderText).alpha() > 128);
        palette.setColor(QPalette::Highlight, Qt::darkBlue);
        QCOMPARE(Contrast::withLegibleTexts(palette).color(QPalette::Highlight),
                 QColor(Qt::darkBlue));
    }

    void aSelectionWithDarkTextBecomesLighter() {
        QPalette palette;
        palette.setColor(QPalette::Highlight, QColor(90, 90, 90));
        palette.setColor(QPalette::HighlightedText, Qt::black);
        const QColor selection = Contrast::withLegibleTexts(palette).color(QPalette::Highlight);
        QVERIFY(selection.lightness() > 90);
        QVERIFY(Contrast::ratio(selection, Qt::black) >= 4.5);
    }
};

VELMORA_TEST(ContrastTest)
#include "ContrastTest.moc"
