#include "Engine/Profile/ReadOnlyConnection.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QtCore/QScopeGuard>
#include <QtCore/QStorageInfo>

#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Profile/SqliteCode.h"
#include "Support/Failure.h"
#include "Support/FaultyFileSystem.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Reads of a profile that fail, and what they mean for the profile.
class ReadOnlyConnectionTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;

    QString path() const { return m_host->engine().profile().path(); }
    static Expected<QVariant> valueIn(const QString &path, const char *statement) {
        return ReadOnlyConnection::open(path, ReadOnlyConnection::Sharing::Shared)
            .and_then([&](const auto &database) {
                return database->value(QLatin1StringView(statement));
            });
    }

private Q_SLOTS:
    void initTestCase() { FaultyFileSystem::install(); }
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void aResultWithoutARowIsNoError() {
        const Expected<QVariant> value = valueIn(path(), "SELECT 1 WHERE FALSE");
        QVERIFY(value);
        QVERIFY(!value->isValid());
        QCOMPARE(valueIn(path(), "SELECT 2").value(), QVariant(2));
    }

    void aMissingTableIsDamage() {
        QCOMPARE(code(valueIn(path(), "SELECT 1 FROM nothing")), EngineErrorCode::ProfileDamaged);
    }

    void aFileOfAnotherFormatIsDamage() {
        QFile file(m_host->directory() + QStringLiteral("/text"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'x'));
        file.close();
        QCOMPARE(code(valueIn(file.fileName(), "PRAGMA user_version")),
                 EngineErrorCode::ProfileDamaged);
    }

    void aFailedCopyStatesItsCause() {
        const auto database =
            ReadOnlyConnection::open(path(), ReadOnlyConnection::Sharing::Shared).value();
        const FaultyFileSystem faulty(FaultyFileSystem::Fault::Error, 1,
                                      FaultyFileSystem::Duration::FromThenOn);
        const auto copied = database->copyTo(m_host->directory() + QStringLiteral("/copy"));
        QVERIFY(!copied);
        QCOMPARE(sqliteCode(copied.error()), SqliteCode::CannotOpen);
    }

    void aDiskOfUnknownSizeIsNotFull() {
        const QString file = QStringLiteral("/proc/version");
        QCOMPARE(QStorageInfo(file).bytesTotal(), 0);
        QVERIFY(!FullDisk::isFull(file));
    }

    void aLackOfFileDescriptorsIsNoDamage() {
        QVERIFY(ProfileInspection::check(path()));
        rlimit former{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &former), 0);
        const int next = dup(STDIN_FILENO);
        QVERIFY(next >= 0);
        close(next);
        const rlimit none{static_cast<rlim_t>(next), former.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        Expected<void> checked;
        {
            const auto restore = qScopeGuard([&] { setrlimit(RLIMIT_NOFILE, &former); });
            checked = ProfileInspection::check(path());
        }
        QCOMPARE(code(checked), EngineErrorCode::ProfileUnusable);
        QVERIFY(description(checked).contains(path()));
        QVERIFY(ProfileInspection::check(path()));
    }
};

VELMORA_TEST(ReadOnlyConnectionTest)
#include "ReadOnlyConnectionTest.moc"
