#include "View/WeekdayPicker.h"

#include <QtWidgets/QToolButton>

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

private Q_SLOTS:
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
