#include "View/WeekdayPicker.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include "Platform/Interface/Contrast.h"
#include "Support/TestMain.h"

class WeekdayPickerTest : public QObject {
    Q_OBJECT

    static QStringList names(const WeekdayPicker &picker) {
        QStringList result;
        for (const QToolButton *button : picker.findChildren<QToolButton *>()) {
            result.append(button->accessibleName());
        }
        return result;
    }

    static QToolButton *button(const WeekdayPicker &picker, const char *name) {
        for (QToolButton *button : picker.findChildren<QToolButton *>()) {
            if (button->accessibleName() == QLatin1StringView(name)) {
                return button;
            }
        }
        return nullptr;
    }

    static QPalette paletteOf(QRgb button, QRgb window, QRgb base, QRgb highlight) {
        QPalette palette{QColor(button), QColor(window)};
        palette.setColor(QPalette::Base, QColor(base));
        palette.setColor(QPalette::Highlight, QColor(highlight));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        return palette;
    }
    static QColor groundOf(QToolButton *button) {
        const QImage picture = button->grab().toImage();
        return picture.pixelColor(picture.width() / 2, 5);
    }

private Q_SLOTS:
    void chosenDaysDifferFromTheOthers_data() {
        QTest::addColumn<QPalette>("palette");
        QTest::newRow("light") << paletteOf(0xefefef, 0xefefef, 0xffffff, 0x2260bf);
        QTest::newRow("dark") << paletteOf(0x3a3a3c, 0x2a2a2c, 0x1e1e20, 0x2a63c4);
    }
    void chosenDaysDifferFromTheOthers() {
        QFETCH(const QPalette, palette);
        WeekdayPicker picker;
        picker.setPalette(palette);
        picker.setDays(2);
        const double ratio = Contrast::ratio(groundOf(button(picker, "Monday")),
                                             groundOf(button(picker, "Tuesday")));
        QVERIFY2(ratio >= Contrast::OfOutline, qPrintable(QString::number(ratio)));
        const double ratioOfText = Contrast::ratio(groundOf(button(picker, "Monday")), Qt::white);
        QVERIFY2(ratioOfText >= Contrast::OfText, qPrintable(QString::number(ratioOfText)));
    }

    void theDayWithTheFocusIsSeen_data() { chosenDaysDifferFromTheOthers_data(); }
    void theDayWithTheFocusIsSeen() {
        QFETCH(const QPalette, palette);
        WeekdayPicker picker;
        picker.setPalette(palette);
        picker.setDays(2);
        picker.show();
        picker.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&picker));
        for (const char *day : {"Monday", "Tuesday"}) {
            QToolButton *focused = button(picker, day);
            focused->clearFocus();
            const QImage before = focused->grab().toImage();
            focused->setFocus();
            const QImage after = focused->grab().toImage();
            double greatest = 1;
            for (int x = 0; x < after.width(); ++x) {
                const QPoint place(x, after.height() / 2);
                greatest = qMax(greatest,
                                Contrast::ratio(before.pixelColor(place), after.pixelColor(place)));
            }
            QVERIFY2(greatest >= Contrast::OfOutline, qPrintable(QString::number(greatest)));
        }
    }

    void theMnemonicOfItsLabelFocusesTheFirstDay() {
        QWidget window;
        auto *label = new QLabel(QStringLiteral("o&n"));
        auto *picker = new WeekdayPicker;
        auto *field = new QToolButton;
        field->setFocusPolicy(Qt::StrongFocus);
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(field);
        layout->addWidget(label);
        layout->addWidget(picker);
        label->setBuddy(picker);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), button(*picker, "Sunday"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button(*picker, "Monday"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(QApplication::focusWidget(), field);
    }

    void init() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    void theWeekBeginsAsTheLocaleHasIt() {
        QCOMPARE(names(WeekdayPicker()).first(), QStringLiteral("Sunday"));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        QCOMPARE(names(WeekdayPicker()),
                 QStringList({QStringLiteral("Monday"), QStringLiteral("Tuesday"),
                              QStringLiteral("Wednesday"), QStringLiteral("Thursday"),
                              QStringLiteral("Friday"), QStringLiteral("Saturday"),
                              QStringLiteral("Sunday")}));
    }

    void theMaskShowsItsDays() {
        WeekdayPicker picker;
        picker.setDays(62);
        QVERIFY(!button(picker, "Sunday")->isChecked());
        QVERIFY(button(picker, "Monday")->isChecked());
        QVERIFY(button(picker, "Friday")->isChecked());
        QVERIFY(!button(picker, "Saturday")->isChecked());
    }

    void aClickTogglesOneDayAndEmitsItsSignal() {
        WeekdayPicker picker;
        picker.setDays(62);
        QSignalSpy changes(&picker, &WeekdayPicker::daysChanged);
        button(picker, "Sunday")->click();
        QCOMPARE(picker.days(), quint64{63});
        button(picker, "Monday")->click();
        QCOMPARE(picker.days(), quint64{61});
        QCOMPARE(changes.size(), 2);
    }

    // As assistive technology does it.
    void togglingAButtonTogglesItsDay() {
        WeekdayPicker picker;
        picker.setDays(62);
        QSignalSpy changes(&picker, &WeekdayPicker::daysChanged);
        button(picker, "Monday")->toggle();
        QCOMPARE(picker.days(), quint64{60});
        QCOMPARE(changes.size(), 1);
    }

    void bitsThatAreNoDaysAreKept() {
        WeekdayPicker picker;
        picker.setDays(quint64{1} << 40);
        button(picker, "Saturday")->click();
        QCOMPARE(picker.days(), quint64{1} << 40 | 64);
    }
};

VELMORA_TEST(WeekdayPickerTest)
#include "WeekdayPickerTest.moc"
