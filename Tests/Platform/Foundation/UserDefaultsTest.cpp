#include "Platform/Foundation/UserDefaults.h"

#include <thread>

#include "Support/TestMain.h"

class UserDefaultsTest : public QObject {
    Q_OBJECT

    const QString m_key = QStringLiteral("QVDirectConnectionServerEnabled");

private Q_SLOTS:
    void cleanup() { UserDefaults::remove(m_key); }

    void whatWasNeverSetIsFalseAndZero() {
        QVERIFY(!UserDefaults::contains(m_key));
        QVERIFY(!UserDefaults::boolForKey(m_key));
        QCOMPARE(UserDefaults::integerForKey(m_key), 0);
        QCOMPARE(UserDefaults::stringForKey(m_key), QString());
    }

    void whatIsSetIsReadUntilItIsRemoved() {
        UserDefaults::setValue(m_key, true);
        QVERIFY(UserDefaults::contains(m_key));
        QVERIFY(UserDefaults::boolForKey(m_key));
        UserDefaults::setValue(m_key, 10101);
        QCOMPARE(UserDefaults::integerForKey(m_key), 10101);
        UserDefaults::setValue(m_key, QStringLiteral("a, b=\"ü\""));
        QCOMPARE(UserDefaults::stringForKey(m_key), QStringLiteral("a, b=\"ü\""));
        UserDefaults::setValue(m_key, false);
        QVERIFY(UserDefaults::contains(m_key));
        QVERIFY(!UserDefaults::boolForKey(m_key));
        UserDefaults::remove(m_key);
        UserDefaults::remove(m_key);
        QVERIFY(!UserDefaults::contains(m_key));
    }

    void whatIsSetIsInTheFileAtOnceUnderItsKey() {
        UserDefaults::setValue(m_key, 7);
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nQVDirectConnectionServerEnabled=7\n"));
    }

    void whatAnotherProgramWritesIsReadAfresh() {
        UserDefaults::setValue(m_key, 7);
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[General]\nQVDirectConnectionServerEnabled=12345\n");
        file.close();
        QCOMPARE(UserDefaults::integerForKey(m_key), 12345);
    }

    void aFileThatCannotBeWrittenIsReported() {
        const QString path = QSettings().fileName();
        QVERIFY(!QFileInfo::exists(path) || QFile::remove(path));
        QVERIFY(QDir().mkpath(path));
        const Expected<void> refused = UserDefaults::setValue(m_key, true);
        QVERIFY(QDir().rmdir(path));
        QVERIFY(!refused);
        QVERIFY(refused.error().localizedDescription.contains(path));
        QVERIFY(UserDefaults::setValue(m_key, true));
        QVERIFY(QSettings().value(m_key).toBool());
    }

    void anotherThreadSeesTheSame() {
        UserDefaults::setValue(m_key, 7);
        int seen = 0;
        std::thread([&] { seen = UserDefaults::integerForKey(m_key); }).join();
        QCOMPARE(seen, 7);
    }
};

VELMORA_TEST(UserDefaultsTest)
#include "UserDefaultsTest.moc"
