#include "View/QVMinimumWidthButton.h"

#include "Support/TestMain.h"

namespace {

/// Fits as wide as the number in its title, so that frames are exact.
class NumberedButton : public QVMinimumWidthButton {
public:
    using QVMinimumWidthButton::QVMinimumWidthButton;
    QSize sizeHint() const override { return {text().toInt(), 24}; }
};

}  // namespace

class QVMinimumWidthButtonTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNewTitleKeepsTheRightEdgeAndTheTop_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QRect>("frame");
        QTest::newRow("narrower") << QStringLiteral("60") << QRect(120, 50, 60, 24);
        QTest::newRow("wider") << QStringLiteral("110") << QRect(70, 50, 110, 24);
        QTest::newRow("beyond the left edge") << QStringLiteral("200") << QRect(-20, 50, 200, 24);
    }

    void aNewTitleKeepsTheRightEdgeAndTheTop() {
        QFETCH(QString, title);
        QFETCH(QRect, frame);
        QWidget parent;
        NumberedButton button(&parent);
        button.setGeometry(100, 50, 80, 30);
        button.setTitle(title);
        QCOMPARE(button.geometry(), frame);
        QCOMPARE(button.title(), title);
        QCOMPARE(button.text(), title);
    }

    void theSameTitleAgainLeavesTheFrame() {
        QWidget parent;
        QVMinimumWidthButton button(&parent);
        button.setGeometry(100, 50, 80, 30);
        button.setTitle(QStringLiteral("Sync Now"));
        const QRect frame = button.geometry();
        button.setTitle(QStringLiteral("Sync Now"));
        QCOMPARE(button.geometry(), frame);
    }

    void theWidthIsWhatTheTitleNeeds() {
        QWidget parent;
        QVMinimumWidthButton button(&parent);
        button.setGeometry(100, 50, 400, 30);
        button.setTitle(QStringLiteral("Stop"));
        QCOMPARE(button.size(), button.sizeHint());
        QCOMPARE(button.x() + button.width(), 500);
        const int narrow = button.width();
        button.setTitle(QStringLiteral("Synchronize every database now"));
        QVERIFY(button.width() > narrow);
        QCOMPARE(button.x() + button.width(), 500);
    }

    void theTitleIsAKey() {
        NumberedButton button;
        button.setGeometry(100, 50, 80, 30);
        QVERIFY(button.setProperty("title", QStringLiteral("60")));
        QCOMPARE(button.geometry(), QRect(120, 50, 60, 24));
    }
};

VELMORA_TEST(QVMinimumWidthButtonTest)
#include "QVMinimumWidthButtonTest.moc"
