#include "Platform/Foundation/DateText.h"

#include <QtCore/QTranslator>
#include <QtWidgets/QToolButton>

#include "Platform/Foundation/Localization.h"
#include "Support/Languages.h"
#include "Support/TestMain.h"
#include "View/WeekdayPicker.h"

/// The language of the texts differs from that of the user's region.
class DateTextTest : public QObject {
    Q_OBJECT

    const QDateTime m_date = QDateTime(QDate(2026, 11, 23), QTime(15, 4, 5));
    QTranslator m_translator;

    static QStringList days() {
        const WeekdayPicker picker;
        QStringList days;
        for (const QToolButton *button : picker.findChildren<QToolButton *>()) {
            days.append(button->accessibleName());
        }
        return days;
    }
    void use(const QString &language) {
        QVERIFY(m_translator.load(QStringLiteral("Sync_") + language,
                                  QStringLiteral(":/VelmoraSync/Translations")));
        addLocalizationTable(PlatformTable, &m_translator);
    }

private Q_SLOTS:
    void cleanup() {
        removeLocalizationTables(&m_translator);
        QLocale::setDefault(QLocale::c());
    }

    void namesAreInTheLanguageOfTheTexts_data() {
        QTest::addColumn<QLocale>("region");
        QTest::addColumn<QString>("firstDay");
        QTest::addColumn<QString>("time");
        QTest::newRow("C") << QLocale::c() << QStringLiteral("Montag")
                           << QStringLiteral("15:04:05");
        QTest::newRow("United States") << QLocale(QLocale::English, QLocale::UnitedStates)
                                       << QStringLiteral("Sonntag") << QStringLiteral("3:04:05");
        QTest::newRow("France") << QLocale(QLocale::French) << QStringLiteral("Montag")
                                << QStringLiteral("15:04:05");
    }
    void namesAreInTheLanguageOfTheTexts() {
        QFETCH(QLocale, region);
        QFETCH(QString, firstDay);
        QFETCH(QString, time);
        QLocale::setDefault(region);
        use(QStringLiteral("de"));
        QCOMPARE(days().first(), firstDay);
        QVERIFY(days().contains(QStringLiteral("Mittwoch")));
        QCOMPARE(DateText::longDate(m_date.date()), QStringLiteral("Montag, 23. November 2026"));
        const QString whole = DateText::longDate(m_date);
        QVERIFY2(whole.startsWith(QStringLiteral("Montag, 23. November 2026 ") + time),
                 qPrintable(whole));
    }

    void shortDatesAreThoseOfTheRegion() {
        use(QStringLiteral("de"));
        QCOMPARE(DateText::shortDate(QDate(2026, 5, 3)), QStringLiteral("3 Mai 2026"));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(DateText::shortDate(QDate(2026, 5, 3)), QStringLiteral("5/3/26"));
    }

    void everyLanguageHasItsNames() {
        for (const QString &language : Languages::translated()) {
            QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
            use(language);
            QCOMPARE(days().first(), QLocale(language).standaloneDayName(Qt::Monday));
            removeLocalizationTables(&m_translator);
        }
    }

    void englishTextsHaveEnglishNames() {
        QLocale::setDefault(QLocale(QLocale::German));
        QVERIFY(days().contains(QStringLiteral("Wednesday")));
        const QString date = DateText::longDate(m_date);
        QVERIFY2(date.startsWith(QStringLiteral("Monday")), qPrintable(date));
        QVERIFY2(date.endsWith(QStringLiteral("23 November 2026 15:04:05")), qPrintable(date));
    }
};

VELMORA_TEST(DateTextTest)
#include "DateTextTest.moc"
