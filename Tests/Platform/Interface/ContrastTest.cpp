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

    /// As palettes of high contrast have it: black on black.
    void disabledTextsCanBeSeenAndArePalerThanOthers() {
        QPalette palette;
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QColor text = group == QPalette::Disabled ? Qt::black : Qt::white;
            for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
                palette.setColor(group, ground, Qt::black);
            }
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                    QPalette::PlaceholderText}) {
                palette.setColor(group, role, text);
            }
        }
        const QPalette legible = Contrast::withLegibleTexts(palette);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                QPalette::PlaceholderText}) {
            const double ratio =
                Contrast::ratio(legible.color(QPalette::Disabled, role), Qt::black);
            QVERIFY2(ratio >= 4.5 && ratio < 6, qPrintable(QString::number(ratio)));
        }
        const QPalette light(QColor(0xef, 0xef, 0xef));
        QCOMPARE(Contrast::withLegibleTexts(light).color(QPalette::Active, QPalette::WindowText),
                 light.color(QPalette::Active, QPalette::WindowText));
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
