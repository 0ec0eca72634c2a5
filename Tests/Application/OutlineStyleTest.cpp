#include "Application/OutlineStyle.h"

#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include "Platform/Interface/Contrast.h"
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

    /// Returns the height of the icon of the first row of a table.
    int heightOfIcon(int pointSize) {
        QTableWidget table(1, 1);
        table.setStyle(&m_style);
        QFont font = table.font();
        font.setPointSize(pointSize);
        table.setFont(font);
        QPixmap icon(64, 64);
        icon.fill(Qt::magenta);
        table.setItem(0, 0, new QTableWidgetItem(QIcon(icon), QString()));
        table.setRowHeight(0, icon.height());
        const QImage picture = table.grab(table.rect()).toImage();
        int height = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == Qt::magenta) {
                    ++height;
                    break;
                }
            }
        }
        return height;
    }

    /// A window with two tables, the first of which has the focus at first.
    struct TwoTables {
        explicit TwoTables(OutlineStyle &style, int rows) {
            auto *layout = new QVBoxLayout(&window);
            for (QTableWidget *table : {&first, &second}) {
                table->setStyle(&style);
                table->setRowCount(rows);
                table->setColumnCount(1);
                table->setSelectionBehavior(QAbstractItemView::SelectRows);
                for (int row = 0; row < rows; ++row) {
                    table->setItem(row, 0, new QTableWidgetItem(QStringLiteral("i")));
                }
                layout->addWidget(table);
            }
            window.show();
            window.activateWindow();
            first.setFocus();
        }

        /// Returns what the screen shows, which needs that Qt repaints what has changed.
        QImage shown() const { return window.screen()->grabWindow(window.winId()).toImage(); }
        QColor frameOf(const QTableWidget &table) const {
            return shown().pixelColor(table.x(), table.geometry().center().y());
        }

        QWidget window;
        QTableWidget first;
        QTableWidget second;
    };

private Q_SLOTS:
    void aTableShowsTheFocusInItsFrame_data() {
        QTest::addColumn<int>("rows");
        QTest::newRow("empty") << 0;
        QTest::newRow("with rows") << 3;
    }
    void aTableShowsTheFocusInItsFrame() {
        QFETCH(const int, rows);
        TwoTables tables(m_style, rows);
        QVERIFY(QTest::qWaitForWindowActive(&tables.window));
        const QColor focus = Contrast::focus(tables.window.palette());
        QVERIFY(Contrast::ratio(focus, tables.window.palette().color(QPalette::Window)) >=
                Contrast::OfOutline);
        QTRY_COMPARE(tables.frameOf(tables.first), focus);
        QVERIFY(tables.frameOf(tables.second) != focus);
        tables.second.setFocus();
        QTRY_COMPARE(tables.frameOf(tables.second), focus);
        QTRY_VERIFY(tables.frameOf(tables.first) != focus);
    }

    void theCurrentItemIsSeen_data() {
        QTest::addColumn<bool>("isSelected");
        QTest::newRow("not selected") << false;
        QTest::newRow("selected") << true;
    }
    void theCurrentItemIsSeen() {
        QFETCH(const bool, isSelected);
        TwoTables tables(m_style, 3);
        QVERIFY(QTest::qWaitForWindowActive(&tables.window));
        tables.first.item(1, 0)->setCheckState(Qt::Unchecked);
        tables.first.setCurrentCell(
            1, 0, isSelected ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Clear);
        const QRect item = tables.first.visualItemRect(tables.first.item(1, 0));
        const QImage picture = tables.first.viewport()->grab(item).toImage();
        const QColor ground = picture.pixelColor(1, 1);
        double greatest = 1;
        for (int x = 0; x < picture.width(); ++x) {
            greatest = qMax(greatest, Contrast::ratio(picture.pixelColor(x, 0), ground));
        }
        // A frame, not only the letter.
        QVERIFY2(greatest >= Contrast::OfOutline, qPrintable(QString::number(greatest)));
        // Also around the check mark.
        const QColor side = picture.pixelColor(0, picture.height() / 2);
        QVERIFY(Contrast::ratio(side, ground) >= Contrast::OfOutline);
    }

    void aMenuHasAnEdge_data() {
        QTest::addColumn<QPalette>("palette");
        QTest::newRow("light") << QPalette(QColor(0xef, 0xef, 0xef));
        QTest::newRow("dark") << QPalette(QColor(0x3a, 0x3a, 0x3c), QColor(0x2a, 0x2a, 0x2c));
        QPalette contrast(Qt::black);
        contrast.setColor(QPalette::Window, Qt::black);
        contrast.setColor(QPalette::Base, Qt::black);
        contrast.setColor(QPalette::WindowText, Qt::white);
        QTest::newRow("high contrast") << contrast;
    }
    void aMenuHasAnEdge() {
        QFETCH(const QPalette, palette);
        QMenu menu;
        menu.setStyle(&m_style);
        menu.setPalette(palette);
        menu.addAction(QStringLiteral("i"));
        menu.resize(menu.sizeHint());
        const QImage picture = menu.grab().toImage();
        const QPoint center = picture.rect().center();
        const int right = picture.width() - 1;
        const int bottom = picture.height() - 1;
        const std::pair<QPoint, QPoint> sides[] = {
            {{0, center.y()}, {4, center.y()}},
            {{right, center.y()}, {right - 4, center.y()}},
            {{center.x(), 0}, {center.x(), 2}},
            {{center.x(), bottom}, {center.x(), bottom - 2}}};
        for (const auto &[edge, inside] : sides) {
            const QColor color = picture.pixelColor(edge);
            for (const QColor &ground :
                 {palette.color(QPalette::Window), picture.pixelColor(inside)}) {
                const double ratio = Contrast::ratio(color, ground);
                QVERIFY2(ratio >= Contrast::OfOutline, qPrintable(QString::number(ratio)));
            }
        }
    }

    void aDisabledItemOfAMenuIsDrawnOnce() {
        QMenu menu;
        menu.setStyle(&m_style);
        QPalette palette(QColor(0x3a, 0x3a, 0x3c), QColor(0x2a, 0x2a, 0x2c));
        palette.setColor(QPalette::Light, Qt::magenta);
        menu.setPalette(palette);
        menu.addAction(QStringLiteral("Rename"))->setEnabled(false);
        menu.resize(menu.sizeHint());
        const QImage picture = menu.grab().toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor color = picture.pixelColor(x, y);
                count += color.red() > 2 * color.green() ? 1 : 0;
            }
        }
        QCOMPARE(count, 0);
    }

    void checkMarksGrowWithTheFont() {
        QVERIFY(heightOfMark<QCheckBox>(9) >= 13);
        QVERIFY(heightOfMark<QCheckBox>(18) >= 20);
        QVERIFY(heightOfMark<QRadioButton>(9) >= 13);
        QVERIFY(heightOfMark<QRadioButton>(18) >= 20);
    }

    void shortcutsStandApartFromTheTexts_data() {
        QTest::addColumn<int>("size");
        QTest::newRow("usual") << 9;
        QTest::newRow("large") << 18;
    }
    void shortcutsStandApartFromTheTexts() {
        QFETCH(const int, size);
        QMenu menu;
        menu.setStyle(&m_style);
        QFont font = menu.font();
        font.setPointSize(size);
        menu.setFont(font);
        const QKeySequence shortcut(Qt::CTRL | Qt::Key_Z);
        const QString text = QStringLiteral("Löschen der Notiz rückgängig machen");
        menu.addAction(text)->setShortcut(shortcut);
        const QFontMetrics metrics = menu.fontMetrics();
        const int texts = metrics.horizontalAdvance(text) +
                          metrics.horizontalAdvance(shortcut.toString(QKeySequence::NativeText));
        QMenu other;
        other.setStyle(&m_style);
        other.setFont(font);
        other.addAction(text);
        const int frame = other.sizeHint().width() - metrics.horizontalAdvance(text);
        const int gap = menu.sizeHint().width() - texts - frame;
        QVERIFY2(gap >= 2 * metrics.averageCharWidth(), qPrintable(QString::number(gap)));
    }

    void iconsGrowWithTheFont() {
        QCOMPARE(heightOfIcon(9), 16);
        QVERIFY(heightOfIcon(18) >= 20);
        QToolButton button;
        button.setStyle(&m_style);
        QFont font = button.font();
        font.setPointSize(18);
        button.setFont(font);
        QVERIFY(button.iconSize().height() >= 20);
    }
};

VELMORA_TEST(OutlineStyleTest)
#include "OutlineStyleTest.moc"
