#include "View/QVSelectedItemBackgroundView.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Platform/Interface/ListPalette.h"
#include "Support/TestMain.h"
#include "View/QVSelectedView.h"

using Style = Control::BackgroundStyle;

namespace {

/// A superview that counts what it is given.
class ClickCounter : public QWidget {
public:
    using QWidget::QWidget;
    int presses = 0;
    int doubleClicks = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
    void mouseDoubleClickEvent(QMouseEvent * /*event*/) override { ++doubleClicks; }
};

QPalette darkPalette() {
    QPalette palette(QColor(40, 40, 40));
    palette.setColor(QPalette::Base, QColor(10, 10, 12));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    palette.setColor(QPalette::Highlight, QColor(200, 20, 60));
    palette.setColor(QPalette::HighlightedText, QColor(255, 255, 0));
    return palette;
}

}  // namespace

class QVSelectedItemBackgroundViewTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void isNotSelectedAtFirst() { QVERIFY(!QVSelectedItemBackgroundView().isSelected()); }

    void paintsTheGroundOfListsOrTheSelectionColor_data() {
        QTest::addColumn<QPalette>("application");
        QTest::addColumn<QColor>("ground");
        QTest::newRow("light theme") << QPalette(QColor(0xef, 0xef, 0xef)) << QColor(Qt::white);
        QTest::newRow("dark theme") << darkPalette() << QColor(10, 10, 12);
    }

    void paintsTheGroundOfListsOrTheSelectionColor() {
        QFETCH(QPalette, application);
        QFETCH(QColor, ground);
        QApplication::setPalette(application);
        QVSelectedItemBackgroundView view;
        view.resize(20, 10);
        QCOMPARE(view.grab().toImage().pixelColor(3, 3), ground);
        view.setSelected(true);
        const QImage selected = view.grab().toImage();
        QCOMPARE(selected.pixelColor(0, 0), ListPalette::alternateSelectedControlColor());
        QCOMPARE(selected.pixelColor(19, 9), ListPalette::alternateSelectedControlColor());
        view.setSelected(false);
        QCOMPARE(view.grab().toImage().pixelColor(19, 9), ground);
    }

    void theSelectionColorIsTheThemes() {
        QApplication::setPalette(darkPalette());
        QCOMPARE(ListPalette::alternateSelectedControlColor(), QColor(200, 20, 60));
    }

    void aVisibleViewRepaintsItselfWhenSelected() {
        QVSelectedItemBackgroundView view;
        view.resize(20, 10);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QCoreApplication::processEvents();
        PaintCounter paints(&view);
        view.setSelected(true);
        QTRY_COMPARE(paints.rects, QList<QRect>({view.rect()}));
    }

    void onlyDirectControlsFollowTheSelection() {
        QVSelectedItemBackgroundView view;
        auto *label = new QLabel(&view);
        auto *button = new QPushButton(&view);
        auto *nestedRow = new QVSelectedItemBackgroundView(&view);
        auto *plain = new QWidget(&view);
        auto *nested = new QLabel(plain);
        view.setSelected(true);
        QCOMPARE(Control::backgroundStyle(label), Style::Dark);
        QCOMPARE(Control::backgroundStyle(button), Style::Dark);
        QCOMPARE(Control::backgroundStyle(nestedRow), Style::Dark);
        QCOMPARE(Control::backgroundStyle(plain), Style::Light);
        QCOMPARE(Control::backgroundStyle(nested), Style::Light);
        view.setSelected(false);
        QCOMPARE(Control::backgroundStyle(label), Style::Light);
        QCOMPARE(Control::backgroundStyle(button), Style::Light);
        QCOMPARE(Control::backgroundStyle(nestedRow), Style::Light);
    }

    void aControlInAControlKeepsItsPalette() {
        QVSelectedItemBackgroundView view;
        QPushButton button(&view);
        QLabel nested(&button);
        QLabel nestedDeeper(&nested);
        QPalette red;
        red.setColor(QPalette::WindowText, Qt::red);
        QLabel colored(&button);
        colored.setPalette(red);
        for (const bool selected : {true, false, true}) {
            view.setSelected(selected);
            QCOMPARE(nested.palette().color(QPalette::WindowText), QColor(Qt::black));
            QCOMPARE(nestedDeeper.palette().color(QPalette::WindowText), QColor(Qt::black));
            QCOMPARE(colored.palette().color(QPalette::WindowText), QColor(Qt::red));
        }
    }

    void textIsLegibleInEveryTheme() {
        QApplication::setPalette(darkPalette());
        QVSelectedItemBackgroundView view;
        QLabel label(&view);
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(230, 230, 230));
        view.setSelected(true);
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(255, 255, 0));
        view.setSelected(false);
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(230, 230, 230));
    }

    void aNewThemeReachesTheControlsOfAView() {
        QVSelectedItemBackgroundView view;
        QLabel label(&view);
        view.setSelected(true);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QApplication::setPalette(darkPalette());
        QCoreApplication::processEvents();
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(255, 255, 0));
        view.setSelected(false);
        QApplication::setPalette(QPalette(QColor(0xef, 0xef, 0xef)));
        QCoreApplication::processEvents();
        QCOMPARE(label.palette().color(QPalette::WindowText), QColor(Qt::black));
    }

    void selectedIsAKeyThatAnnouncesEqualValuesToo() {
        QVSelectedItemBackgroundView view;
        QSignalSpy announced(&view, &QVSelectedItemBackgroundView::selectedChanged);
        QVERIFY(view.setProperty("selected", true));
        view.setSelected(true);
        QCOMPARE(announced.count(), 2);
    }

    void aSingleClickIsPassedToTheSuperview() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QSignalSpy actions(&view, &Control::action);
        QTest::mouseClick(&view, Qt::LeftButton);
        QCOMPARE(list.presses, 1);
        QCOMPARE(actions.count(), 0);
    }

    void aDoubleClickSendsTheActionOnceAndStaysInTheView() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QSignalSpy actions(&view, &Control::action);
        QTest::mouseClick(&view, Qt::LeftButton);
        QTest::mouseDClick(&view, Qt::LeftButton);
        QCOMPARE(list.presses, 1);
        QCOMPARE(list.doubleClicks, 0);
        QCOMPARE(actions.count(), 1);
    }

    void aThirdClickIsPassedToTheSuperview() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QSignalSpy actions(&view, &Control::action);
        QTest::mouseClick(&view, Qt::LeftButton);
        QTest::mouseDClick(&view, Qt::LeftButton);
        QTest::mouseClick(&view, Qt::LeftButton);
        QCOMPARE(list.presses, 2);
        QCOMPARE(actions.count(), 1);
    }

    // Counted by Qt, as the window system reports them.
    void onlyTheSecondOfFourQuickClicksSendsTheAction() {
        ClickCounter list;
        list.resize(80, 40);
        QVSelectedItemBackgroundView view(&list);
        view.resize(list.size());
        QSignalSpy actions(&view, &Control::action);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        clickFast(list, 4);
        QCOMPARE(actions.count(), 1);
        QCOMPARE(list.presses + list.doubleClicks, 3);
        clickFast(list, 2);
        QCOMPARE(actions.count(), 2);
        QCOMPARE(list.presses + list.doubleClicks, 4);
    }

    void aDoubleClickBesideAnEarlierClickSendsTheAction() {
        ClickCounter list;
        list.resize(200, 40);
        QVSelectedItemBackgroundView view(&list);
        view.resize(list.size());
        QSignalSpy actions(&view, &Control::action);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        clickFast(list, 1, QPointF(10, 10));
        QTest::lastMouseTimestamp -= Pause;
        clickFast(list, 2, QPointF(150, 10));
        QCOMPARE(actions.count(), 1);
        QCOMPARE(list.presses, 2);
        QCOMPARE(list.doubleClicks, 0);
    }

    void aDoubleClickBesideAnEarlierOneSendsTheActionAgain() {
        ClickCounter list;
        list.resize(200, 40);
        QVSelectedItemBackgroundView view(&list);
        view.resize(list.size());
        QSignalSpy actions(&view, &Control::action);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        clickFast(list, 2, QPointF(10, 10));
        QTest::lastMouseTimestamp -= Pause;
        clickFast(list, 2, QPointF(150, 10));
        QCOMPARE(actions.count(), 2);
        QCOMPARE(list.presses, 2);
        QCOMPARE(list.doubleClicks, 0);
    }

    void otherButtonsSendNoAction() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QSignalSpy actions(&view, &Control::action);
        QTest::mouseDClick(&view, Qt::RightButton);
        QCOMPARE(actions.count(), 0);
        QCOMPARE(list.doubleClicks, 1);
    }

    void clicksOnALabelAreThoseOfTheView() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QLabel label(&view);
        QSignalSpy actions(&view, &Control::action);
        QTest::mouseClick(&label, Qt::LeftButton);
        QCOMPARE(list.presses, 1);
        QTest::mouseDClick(&label, Qt::LeftButton);
        QCOMPARE(actions.count(), 1);
    }

    void clicksOnAButtonStayThere() {
        ClickCounter list;
        QVSelectedItemBackgroundView view(&list);
        QPushButton button(&view);
        QSignalSpy clicked(&button, &QPushButton::clicked);
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(list.presses, 0);
    }

    void neverTakesTheFocus() {
        QWidget window;
        QVSelectedItemBackgroundView background(&window);
        QVSelectedView selected(&window);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(background.focusPolicy(), Qt::NoFocus);
        QCOMPARE(selected.focusPolicy(), Qt::NoFocus);
        background.setFocus();
        QVERIFY(!background.hasFocus());
        selected.setFocus();
        QVERIFY(!selected.hasFocus());
    }

    void aSelectedViewIsAlwaysPaintedInTheSelectionColor() {
        QApplication::setPalette(darkPalette());
        QVSelectedView view;
        view.resize(20, 10);
        const QImage image = view.grab().toImage();
        QCOMPARE(image.pixelColor(0, 0), QColor(200, 20, 60));
        QCOMPARE(image.pixelColor(19, 9), QColor(200, 20, 60));
    }

private:
    static constexpr int Pause = 10000;
    /// Clicks `count` times in quick succession, long after the clicks before.
    static void clickFast(QWidget &window, int count, QPointF local = {10, 10}) {
        constexpr int Step = 20;
        QTest::lastMouseTimestamp += Pause;
        const auto send = [&](QEvent::Type type) {
            const Qt::MouseButtons held =
                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            qt_handleMouseEvent(window.windowHandle(), local, window.mapToGlobal(local), held,
                                Qt::LeftButton, type, Qt::NoModifier,
                                QTest::lastMouseTimestamp += Step);
            QCoreApplication::processEvents();
        };
        for (int i = 0; i < count; ++i) {
            send(QEvent::MouseButtonPress);
            send(QEvent::MouseButtonRelease);
        }
    }

    /// What a view is asked to paint.
    class PaintCounter : public QObject {
    public:
        explicit PaintCounter(QWidget *view) { view->installEventFilter(this); }
        QList<QRect> rects;

    protected:
        bool eventFilter(QObject * /*watched*/, QEvent *event) override {
            if (event->type() == QEvent::Paint) {
                rects.append(static_cast<QPaintEvent *>(event)->rect());
            }
            return false;
        }
    };
};

VELMORA_TEST(QVSelectedItemBackgroundViewTest)
#include "QVSelectedItemBackgroundViewTest.moc"
