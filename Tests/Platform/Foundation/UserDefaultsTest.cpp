#include "Platform/Foundation/UserDefaults.h"

#include <sys/stat.h>

#include <thread>

#include "Support/TestMain.h"

class UserDefaultsTest : public QObject {
    Q_OBJECT

    const QString m_key = QStringLiteral("QVDirectConnectionServerEnabled");

private Q_SLOTS:
    void cleanup() { QVERIFY(UserDefaults::remove(m_key)); }

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
        QVERIFY(UserDefaults::remove(m_key));
        QVERIFY(UserDefaults::remove(m_key));
        QVERIFY(!UserDefaults::contains(m_key).value());
    }

    void aValueIsWrittenToTheFileAtOnce() {
        QVERIFY(UserDefaults::setValue(m_key, 7));
        QFile file(QSettings().fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nQVDirectConnectionServerEnabled=7\n"));
    }

    void onlyTheUserCanAccessTheFile() {
        const QString path = QSettings().fileName();
        const QFileDevice::Permissions ours = QFile::ReadOwner | QFile::WriteOwner;
        const auto permissions = [](const QString &item) {
            return QFile::permissions(item) &
                   ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
        };
        const QString folder = QFileInfo(path).path();
        QVERIFY(UserDefaults::remove(m_key));
        QVERIFY(QDir(folder).removeRecursively());
        const mode_t mask = umask(0);
        const Expected<void> written = UserDefaults::setValue(m_key, 7);
        umask(mask);
        QVERIFY(written);
        QCOMPARE(permissions(path), ours);
        QCOMPARE(permissions(folder), ours | QFile::ExeOwner);
        // As an older version has left it.
        QVERIFY(QFile::setPermissions(path, ours | QFile::ReadGroup | QFile::ReadOther));
        QVERIFY(UserDefaults::setValue(m_key, 8));
        QCOMPARE(permissions(path), ours);
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
