#include "Engine/Profile/ProfilePermissions.h"

#include <sys/syscall.h>

#include <QtCore/QDirIterator>
#include <QtCore/QTemporaryDir>

#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Umask.h"

class ProfilePermissionsTest : public QObject {
    Q_OBJECT

    /// The paths of everything in a folder that another user of the computer may access.
    static QStringList accessibleToOthers(const QString &folder) {
        QStringList paths;
        QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString path = all.next();
            paths.append((permissionsOf(path) & 077U) == 0 ? QStringList() : QStringList(path));
        }
        return paths;
    }

    static void giveToOthers(const QString &folder) {
        QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QFileInfo item(all.next());
            if (item.isSymLink()) {
                continue;
            }
            chmod(QFile::encodeName(item.filePath()).constData(), item.isDir() ? 0755 : 0644);
        }
        chmod(QFile::encodeName(folder).constData(), 0755);
    }

private Q_SLOTS:
    void noOtherUserCanAccessANewProfile_data() {
        QTest::addColumn<int>("mask");
        QTest::newRow("none") << 0;
        QTest::newRow("usual") << 022;
    }

    void noOtherUserCanAccessANewProfile() {
        QFETCH(int, mask);
        const Umask umask(static_cast<mode_t>(mask));
        TestHost host(FirstContents::Welcome);
        Note note{.title = QStringLiteral("Secret"), .text = QStringLiteral("Text")};
        QCOMPARE(description(host.inbox()->saveNote(note)), QString());
        const EngineFuture future;
        for (const auto &location : host.locations().syncLocations()) {
            const auto store = std::dynamic_pointer_cast<BlobStore>(location->createStore());
            QVERIFY(store->writeIfAbsent(QStringLiteral("transactions/a/b"), "x", future));
        }
        const QString served = DirectConnectionPackage::pathInProfile(host.directory());
        QVERIFY(DirectConnectionPackage(served, nullptr, nullptr).make());
        QCOMPARE(permissionsOf(host.directory()), 0700U);
        QCOMPARE(accessibleToOthers(host.directory()), QStringList());
        for (const char *name : {"", "-wal", "-shm"}) {
            const QString file =
                host.directory() + QStringLiteral("/profile.sqlite") + QLatin1StringView(name);
            QCOMPARE(permissionsOf(file), 0600U);
        }
    }

    void anExistingProfileIsTakenFromOtherUsers() {
        TestHost host(FirstContents::Welcome);
        const QString directory = host.directory();
        const QString program = directory + QStringLiteral("/my program");
        const QString link = directory + QStringLiteral("/link");
        QVERIFY(QFile::copy(QStringLiteral("/bin/true"), program));
        QTemporaryFile target;
        QVERIFY(target.open());
        QCOMPARE(chmod(QFile::encodeName(target.fileName()).constData(), 0644), 0);
        QVERIFY(QFile::link(target.fileName(), link));
        giveToOthers(directory);
        chmod(QFile::encodeName(program).constData(), 0755);
        host.restart();
        QCOMPARE(permissionsOf(directory), 0700U);
        QCOMPARE(permissionsOf(directory + QStringLiteral("/profile.sqlite")), 0600U);
        QCOMPARE(permissionsOf(directory + QStringLiteral("/profile.lock")), 0600U);
        QCOMPARE(permissionsOf(directory + QStringLiteral("/Sync Stores")), 0700U);
        // What the owner may do with it remains.
        QCOMPARE(permissionsOf(program), 0700U);
        QCOMPARE(permissionsOf(target.fileName()), 0644U);
    }

    void aProfileWhosePermissionsCannotBeChangedIsReported() {
        QCOMPARE(code(ProfilePermissions::removeForOthers(QStringLiteral("/proc/self"))),
                 EngineErrorCode::ProfileUnusable);
        QVERIFY(description(ProfilePermissions::removeForOthers(QStringLiteral("/proc/self")))
                    .contains(QStringLiteral("Other users of this computer may be able to read")));
    }

    void aProfileWhoseFilesCannotBeListedIsReported() {
        const QTemporaryDir folder;
        QVERIFY(ProfilePermissions::removeForOthers(folder.path()));
        runWithFailingSystemCall(SYS_getdents64, EIO, [&] {
            QCOMPARE(code(ProfilePermissions::removeForOthers(folder.path())),
                     EngineErrorCode::ProfileUnusable);
        });
    }
};

VELMORA_TEST(ProfilePermissionsTest)
#include "ProfilePermissionsTest.moc"
