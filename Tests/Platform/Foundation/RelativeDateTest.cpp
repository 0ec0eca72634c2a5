#include "Platform/Foundation/RelativeDate.h"

#include "Support/TestMain.h"

class RelativeDateTest : public QObject {
    Q_OBJECT

    const QDateTime m_now{QDate(2026, 3, 10), QTime(0, 5)};

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void nearDaysHaveTheirNames_data() {
        QTest::addColumn<QDateTime>("date");
        QTest::addColumn<QString>("text");
        QTest::newRow("just before midnight")
            << m_now.addSecs(-360) << QStringLiteral("yesterday at 23:59");
        QTest::newRow("today") << m_now.addSecs(60 * 60) << QStringLiteral("today at 01:05");
        QTest::newRow("late today") << m_now.addSecs(86000) << QStringLiteral("today at 23:58");
        QTest::newRow("tomorrow") << m_now.addSecs(86400) << QStringLiteral("tomorrow at 00:05");
        QTest::newRow("farther back") << m_now.addDays(-2) << QStringLiteral("08/03/2026 00:05");
        QTest::newRow("farther ahead") << m_now.addDays(2) << QStringLiteral("12/03/2026 00:05");
        QTest::newRow("another time zone") << m_now.toUTC() << QStringLiteral("today at 00:05");
        QTest::newRow("never") << QDateTime() << QString();
    }

    void nearDaysHaveTheirNames() {
        QFETCH(QDateTime, date);
        QFETCH(QString, text);
        QCOMPARE(relativeDateString(date, m_now), text);
    }
};

VELMORA_TEST(RelativeDateTest)
#include "RelativeDateTest.moc"
