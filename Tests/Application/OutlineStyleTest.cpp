#include "Application/OutlineStyle.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QRadioButton>

#include "Support/TestMain.h"

/// What the style draws, in rendered pixels.
class OutlineStyleTest : public QObject {
    Q_OBJECT

    OutlineStyle m_style;

    /// Returns the height of the mark of a button without text.
    template <class Button>
    int heightOfMark(int pointSize) {
        Button button;
        button.setStyle(&m_style);
        QFont font = button.font();
        font.setPointSize(pointSize);
        button.setFont(font);
        button.setText(QStringLiteral(" "));
        button.resize(button.sizeHint());
        const QImage picture = button.grab().toImage();
        const QRgb ground = picture.pixel(picture.width() - 1, 0);
        int first = picture.height();
        int last = -1;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixel(x, y) != ground) {
                    first = qMin(first, y);
                    last = qMax(last, y);
                }
            }
        }
        return last - first + 1;
    }

private Q_SLOTS:
    void checkMarksGrowWithTheFont() {
        QVERIFY(heightOfMark<QCheckBox>(9) >= 13);
        QVERIFY(heightOfMark<QCheckBox>(18) >= 20);
        QVERIFY(heightOfMark<QRadioButton>(9) >= 13);
        QVERIFY(heightOfMark<QRadioButton>(18) >= 20);
    }
};

VELMORA_TEST(OutlineStyleTest)
#include "OutlineStyleTest.moc"
