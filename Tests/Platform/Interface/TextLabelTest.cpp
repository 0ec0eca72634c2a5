#include "Platform/Interface/TextLabel.h"

#include <QtWidgets/QApplication>

#include "Support/TestMain.h"

class TextLabelTest : public QObject {
    Q_OBJECT

    static QImage picture(TextLabel &label, const QSize &size) {
        label.resize(size);
        return label.grab().toImage();
    }

private Q_SLOTS:
    void aTextThatJustFitsIsInOneLine() {
        for (int size = 8; size <= 24; ++size) {
            TextLabel label;
            QFont font = QApplication::font();
            font.setPointSize(size);
            label.setFont(font);
            label.setWordWrap(true);
            label.setText(QStringLiteral("Synchronisierung fehlgeschlagen"));
            const int width = label.fontMetrics().horizontalAdvance(label.text());
            const int height = label.heightForWidth(width);
            const QImage wide = picture(label, {2 * width, height});
            QCOMPARE(picture(label, {width, height}), wide.copy(0, 0, width, height));
        }
    }

    void aTextThatDoesNotFitIsWrapped() {
        TextLabel label;
        label.setWordWrap(true);
        label.setText(QStringLiteral("two words"));
        const int width = label.fontMetrics().horizontalAdvance(label.text());
        QVERIFY(label.heightForWidth(width - 1) > label.heightForWidth(width));
    }
};

VELMORA_TEST(TextLabelTest)
#include "TextLabelTest.moc"
