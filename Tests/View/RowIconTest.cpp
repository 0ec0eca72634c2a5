#include "View/RowIcon.h"

#include "Support/TestMain.h"

/// The icon of a row has the height of the row's texts.
class RowIconTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void itGrowsWithTheFont() {
        RowIcon icon;
        QPixmap picture(64, 64);
        picture.setDevicePixelRatio(2);
        picture.fill(Qt::red);
        icon.setPixmap(picture);
        QFont font = icon.font();
        for (const int size : {9, 12, 18}) {
            font.setPointSize(size);
            icon.setFont(font);
            icon.resize(icon.sizeHint());
            const int side = qMax(32, icon.fontMetrics().height() * 3 / 2);
            QCOMPARE(icon.size(), QSize(side, side));
            const QImage shown = icon.grab().toImage();
            QCOMPARE(shown.pixelColor(1, 1), QColor(Qt::red));
            QCOMPARE(shown.pixelColor(side - 2, side - 2), QColor(Qt::red));
        }
    }
};

VELMORA_TEST(RowIconTest)
#include "RowIconTest.moc"
