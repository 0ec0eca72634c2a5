#include "Platform/Foundation/UserDefaults.h"

#include <thread>

#include "Support/TestMain.h"

class UserDefaultsTest : public QObject {
    Q_OBJECT

    const QString m_key = QStringLiteral("QVDirectConnectionServerEnabled");

private Q_SLOTS:
    void cleanup() { UserDefaults::remove(m_key); }

    void missingValuesAreFalseAndZero() {
        QVERIFY(!UserDefaults::contains(m_key).value());
        QVERIFY(!UserDefaults::boolForKey(m_key).value());
        QCOMPARE(UserDefaults::integerForKey(m_key).value(), 0);
        QCOMPARE(UserDefaults::stringForKey(m_key).value(), QString());
    }

    void aValueIsReadUntilItIsRemoved() {
        QVERIFY(UserDefaults::setValue(m_key, true));
        QVERIFY(UserDefaults::contains(m_key).value());
        QVERIFY(UserDefaults::boolForKey(m_key).value());
        QVERIFY(UserDefaults::setValue(m_key, 10101));
        QCOMPARE(UserDefaults::integerForKey(m_key).value(), 10101);
        QVERIFY(UserDefaults::setValue(m_key, QStringLiteral("a, b=\"ü\"")));
        QCOMPARE(UserDefaults::stringForKey(m_key).value(), QStringLiteral("a, b=\"ü\""));
        QVERIFY(UserDefaults::setValue(m_key, false));
        QVERIFY(UserDefaults::contains(m_key).value());
        QVERIFY(!UserDefaults::boolForKey(m_key).value());
        UserDefaults::remove(m_key);
        UserDefaults::remove(m_key);
        QVERIFY(!UserDefaults::contains(m_key).value());
    }

    void aValueIsWrittenToTheFileAtOnce() {
        QVERIFY(UserDefaults::setValue(m_key, 7));
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nQVDirectConnectionServerEnabled=7\n"));
    }

    void changesOfAnotherProcessAreRead() {
        QVERIFY(UserDefaults::setValue(m_key, 7));
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write("[General]\nQVDirectConnectionServerEnabled=12345\n");
        file.close();
        QCOMPARE(UserDefaults::integerForKey(m_key).value(), 12345);
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

    void aFileThatCannotBeReadIsReported() {
        const QString path = QSettings().fileName();
        QVERIFY(!QFileInfo::exists(path) || QFile::remove(path));
        QVERIFY(!UserDefaults::contains(m_key).value());
        QVERIFY(QDir().mkpath(path));
        const auto isReported = [&path](const auto &setting) {
            return !setting && setting.error().localizedDescription.contains(path);
        };
        bool isReportedOnAnotherThread = false;
        std::thread([&] {
            isReportedOnAnotherThread = isReported(UserDefaults::boolForKey(m_key));
        }).join();
        const bool areAllReported = isReported(UserDefaults::boolForKey(m_key)) &&
                                    isReported(UserDefaults::integerForKey(m_key)) &&
                                    isReported(UserDefaults::stringForKey(m_key)) &&
                                    isReported(UserDefaults::contains(m_key));
        QVERIFY(QDir().rmdir(path));
        QVERIFY(areAllReported);
        QVERIFY(isReportedOnAnotherThread);
        QVERIFY(!UserDefaults::contains(m_key).value());
    }

    void anotherThreadSeesTheSame() {
        QVERIFY(UserDefaults::setValue(m_key, 7));
        int seen = 0;
        std::thread([&] { seen = UserDefaults::integerForKey(m_key).value(); }).join();
        QCOMPARE(seen, 7);
    }
};

VELMORA_TEST(UserDefaultsTest)
#include "UserDefaultsTest.moc"
