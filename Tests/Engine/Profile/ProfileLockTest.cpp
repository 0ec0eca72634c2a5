#include "Engine/Profile/ProfileLock.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Support/Failure.h"
#include "Support/TestMain.h"

class ProfileLockTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString lockFile() const { return m_folder.filePath(ProfileLock::FileName); }

private Q_SLOTS:
    void oneAtATimeHasTheFolder() {
        ProfileLock first;
        QVERIFY(first.acquire(m_folder.path()));
        ProfileLock second;
        QCOMPARE(code(second.acquire(m_folder.path())), EngineErrorCode::ProfileInUse);
        QVERIFY(!second.isHeld());
        first.release();
        QVERIFY(second.acquire(m_folder.path()));
    }

    void undoingRemovesOnlyAFileOfItsOwn() {
        QFile::remove(lockFile());
        ProfileLock lock;
        QVERIFY(lock.acquire(m_folder.path()));
        lock.undo();
        QVERIFY(!QFileInfo::exists(lockFile()));
        QVERIFY(lock.acquire(m_folder.path()));
        lock.release();
        QVERIFY(lock.acquire(m_folder.path()));
        lock.undo();
        QVERIFY(QFileInfo::exists(lockFile()));
    }

    void aFolderThatIsNotThereIsAnError() {
        ProfileLock lock;
        QCOMPARE(code(lock.acquire(m_folder.filePath(QStringLiteral("none")))),
                 EngineErrorCode::ProfileUnusable);
    }

    void anOpenProfileIsLeftAsItIs() {
        const QString directory = m_folder.filePath(QStringLiteral("Profile"));
        const auto nothing = [] { return Expected<void>(); };
        ProfileDatabase first;
        QVERIFY(first.open(directory, nothing, nothing));
        ProfileDatabase second;
        QCOMPARE(code(second.open(directory, nothing, nothing)), EngineErrorCode::ProfileInUse);
        QVERIFY(QFileInfo::exists(first.path()));
        QVERIFY(first.run(QStringLiteral("INSERT INTO settings (key, value) VALUES ('a', 1)")));
    }
};

VELMORA_TEST(ProfileLockTest)
#include "ProfileLockTest.moc"
