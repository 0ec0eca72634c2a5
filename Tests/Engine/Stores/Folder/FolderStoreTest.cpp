#include <linux/capability.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <future>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Host/QVSyncStoreCheck.h"
#include "Support/FailingSystemCall.h"
#include "Support/Failure.h"
#include "Support/PrivateVolume.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Umask.h"

namespace {

using Written = BlobStore::Written;

const QString FolderBlob = QStringLiteral("transactions/11111111-1111-4111-8111-111111111111/1-a");
constexpr qint64 FolderLimit = 1000;

/// While it exists, file permissions apply to this thread, even if it is privileged.
class Unprivileged {
public:
    Unprivileged() : m_before(capabilities()) {
        Capabilities reduced = m_before;
        reduced[0].effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH);
        set(reduced);
    }
    ~Unprivileged() { set(m_before); }
    Unprivileged(const Unprivileged &) = delete;
    Unprivileged &operator=(const Unprivileged &) = delete;

private:
    using Capabilities = std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3>;

    static Capabilities capabilities() {
        Capabilities current{};
        syscall(SYS_capget, &header, current.data());
        return current;
    }
    static void set(const Capabilities &wanted) { syscall(SYS_capset, &header, wanted.data()); }

    static inline __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    const Capabilities m_before;
};

}  // namespace

/// The folder store over real volumes.
class FolderStoreTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<BlobStore> m_store;
    EngineFuture m_future;

    std::shared_ptr<BlobStore> storeAt(const QString &path) {
        return m_host->newLocation(Url::fileURL(path))->createBlobStore();
    }
    QString path(const QString &name = {}) const { return m_store->place(name); }
    Expected<QByteArray> read(const QString &name) {
        return m_store->read(name, FolderLimit, m_future);
    }
    Expected<Written> write(const QString &name, const QByteArray &contents) {
        return m_store->writeIfAbsent(name, contents, m_future);
    }
    QString descriptionOfOpening(BlobStore &store) { return description(store.open(m_future)); }
    /// The names in a folder, those of hidden files among them.
    QStringList allNames(const QString &folder) const {
        return QDir(path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// A package of which `m_store` is the store.
    QString makePackageOn(const QString &volume) {
        const QString package = volume + QStringLiteral("/Trip.qvSyncStore");
        QDir().mkpath(package + QStringLiteral("/databases"));
        QDir().mkpath(package + QStringLiteral("/transactions"));
        m_store = storeAt(package);
        return package;
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_store = std::dynamic_pointer_cast<BlobStore>(
            m_host->addLocation(m_host->makeSyncStore(QStringLiteral("Für unterwegs")))
                ->createStore());
        QVERIFY(m_store);
        QCOMPARE(description(m_store->open(m_future)), QString());
    }

    void cleanup() {
        m_store.reset();
        m_host.reset();
    }

    void aBlobIsReadAsItWasWritten() {
        QByteArray contents(
            "\0\xff"
            "bytes",
            7);
        QCOMPARE(write(FolderBlob, contents), Expected<Written>(Written::New));
        QCOMPARE(read(FolderBlob), Expected<QByteArray>(contents));
        QCOMPARE(write(QStringLiteral("transactions/empty"), {}), Expected<Written>(Written::New));
        QCOMPARE(read(QStringLiteral("transactions/empty")), Expected<QByteArray>(QByteArray()));
    }

    void aBlobIsNeverWrittenOver() {
        QCOMPARE(write(FolderBlob, "first"), Expected<Written>(Written::New));
        QCOMPARE(write(FolderBlob, "second"), Expected<Written>(Written::AlreadyThere));
        QCOMPARE(read(FolderBlob), Expected<QByteArray>(QByteArray("first")));
    }

    void writingLeavesNothingBesideTheBlob() {
        QVERIFY(write(FolderBlob, "first"));
        QVERIFY(write(FolderBlob, "second"));
        QCOMPARE(allNames(FolderBlob.section(u'/', 0, 1)), QStringList(QStringLiteral("1-a")));
    }

    void newItemsHaveThePermissionsOfThePackage_data() {
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("package");
        QTest::newRow("private") << 0 << 0700;
        QTest::newRow("private, usual umask") << 022 << 0700;
        QTest::newRow("shared with a group") << 022 << 0770;
        QTest::newRow("read by others, strict umask") << 077 << 0755;
    }

    void newItemsHaveThePermissionsOfThePackage() {
        QFETCH(int, mask);
        QFETCH(int, package);
        const Umask umask(static_cast<mode_t>(mask));
        for (const char *folder : {"", "transactions"}) {
            chmod(QFile::encodeName(path(QLatin1StringView(folder))).constData(), package);
        }
        QCOMPARE(write(FolderBlob, "x"), Expected<Written>(Written::New));
        QCOMPARE(permissionsOf(path(FolderBlob)), static_cast<unsigned>(package & 0666));
        QCOMPARE(permissionsOf(path(FolderBlob.section(u'/', 0, 1))),
                 static_cast<unsigned>(package));
    }

    void onlyAnOldUnfinishedFileIsRemoved() {
        const QString folder = path(QStringLiteral("databases/"));
        for (const char *name : {".new-old", ".new-young", ".old"}) {
            QFile file(folder + QLatin1StringView(name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            if (!QByteArrayView(name).endsWith("young")) {
                QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-2),
                                         QFileDevice::FileModificationTime));
            }
        }
        QCOMPARE(m_store->list(QStringLiteral("databases"), m_future),
                 Expected<QStringList>(QStringList()));
        QCOMPARE(allNames(QStringLiteral("databases")),
                 QStringList({QStringLiteral(".new-young"), QStringLiteral(".old")}));
    }

    void aFolderThatCannotBeMadeDurableIsAnError() {
        Expected<Written> first;
        Expected<Written> again;
        runWithFailingSystemCall(SYS_fsync, EIO, [&] {
            first = write(QStringLiteral("databases/x"), "x");
            again = write(QStringLiteral("databases/x"), "x");
        });
        QCOMPARE(code(first), EngineErrorCode::StoreUnreachable);
        QCOMPARE(code(again), EngineErrorCode::StoreUnreachable);
        runWithFailingSystemCall(SYS_fsync, EINVAL,
                                 [&] { again = write(QStringLiteral("databases/x"), "x"); });
        QCOMPARE(again, Expected<Written>(Written::AlreadyThere));
    }

    void aFileSystemThatAlwaysReplacesIsWrittenThroughLinks_data() {
        QTest::addColumn<int>("error");
        QTest::newRow("does not know the flag") << EINVAL;
        QTest::newRow("does not know the call") << ENOSYS;
    }
    void aFileSystemThatAlwaysReplacesIsWrittenThroughLinks() {
        QFETCH(int, error);
        Expected<Written> first;
        Expected<Written> again;
        runWithFailingSystemCall(SYS_renameat2, error, [&] {
            first = write(FolderBlob, "first");
            again = write(FolderBlob, "second");
        });
        QCOMPARE(first, Expected<Written>(Written::New));
        QCOMPARE(again, Expected<Written>(Written::AlreadyThere));
        QCOMPARE(read(FolderBlob), Expected<QByteArray>(QByteArray("first")));
        QCOMPARE(allNames(FolderBlob.section(u'/', 0, 1)), QStringList(QStringLiteral("1-a")));
    }

    void onlyOneOfManyConcurrentWritersWritesABlob() {
        std::vector<std::future<Expected<Written>>> writers;
        for (int i = 0; i < 8; ++i) {
            writers.push_back(std::async(std::launch::async, [this, i] {
                return write(FolderBlob, QByteArray(900, static_cast<char>('a' + i)));
            }));
        }
        int news = 0;
        for (std::future<Expected<Written>> &writer : writers) {
            const Expected<Written> result = writer.get();
            QVERIFY2(result, qPrintable(description(result)));
            news += *result == Written::New ? 1 : 0;
        }
        QCOMPARE(news, 1);
        const auto contents = read(FolderBlob).value();
        QCOMPARE(contents, QByteArray(900, contents.front()));
    }

    void aFolderIsListedInOrderWithItsFolders() {
        QVERIFY(write(QStringLiteral("transactions/b/1"), "x"));
        QVERIFY(write(QStringLiteral("transactions/a"), "x"));
        QVERIFY(write(QStringLiteral("transactions/Ä ö"), "x"));
        const QStringList names = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("Ä ö")};
        QCOMPARE(m_store->list(QStringLiteral("transactions"), m_future),
                 Expected<QStringList>(names));
    }

    void aMissingFolderIsEmpty() {
        QCOMPARE(m_store->list(QStringLiteral("transactions/none/of/it"), m_future),
                 Expected<QStringList>(QStringList()));
    }

    void invalidNamesAreNotListed() {
        QVERIFY(write(QStringLiteral("transactions/good"), "x"));
        for (const QByteArray &name : {QByteArray("with\nbreak"), QByteArray(".hidden"),
                                       QByteArray("\xff\xfe"), QByteArray("bell\a")}) {
            const QByteArray full = QFile::encodeName(path()) + "/transactions/" + name;
            QCOMPARE(mkdir(full.constData(), 0700), 0);
        }
        QCOMPARE(m_store->list(QStringLiteral("transactions"), m_future),
                 Expected<QStringList>(QStringList(QStringLiteral("good"))));
        // QTemporaryDir cannot remove what it cannot decode.
        rmdir((QFile::encodeName(path()) + "/transactions/\xff\xfe").constData());
    }

    void invalidNamesAreRefused_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("empty") << QString();
        QTest::newRow("absolute") << QStringLiteral("/etc/passwd");
        QTest::newRow("up") << QStringLiteral("databases/../../secret");
        QTest::newRow("here") << QStringLiteral("databases/./x");
        QTest::newRow("hidden") << QStringLiteral("databases/.x");
        QTest::newRow("empty part") << QStringLiteral("databases//x");
        QTest::newRow("at the end") << QStringLiteral("databases/");
        QTest::newRow("NUL") << QStringLiteral("databases/x") + QChar(u'\0') + u'y';
        QTest::newRow("control") << QStringLiteral("databases/x\ny");
        QTest::newRow("C1 control") << QStringLiteral("databases/x") + QChar(0x85);
        QTest::newRow("half a character") << QStringLiteral("databases/x") + QChar(0xd800);
        QTest::newRow("too long") << QStringLiteral("databases/") + QString(256, u'x');
    }

    void invalidNamesAreRefused() {
        QFETCH(QString, name);
        QCOMPARE(code(read(name)), EngineErrorCode::BlobRefused);
        QCOMPARE(code(write(name, "x")), EngineErrorCode::BlobRefused);
        QCOMPARE(code(m_store->list(name, m_future)), EngineErrorCode::BlobRefused);
        QCOMPARE(code(m_store->remove(name, m_future)), EngineErrorCode::BlobRefused);
    }

    void aNameMayHave255Bytes() {
        const QString name = QStringLiteral("databases/") + QString(255, u'x');
        QCOMPARE(write(name, "x"), Expected<Written>(Written::New));
        QCOMPARE(read(name), Expected<QByteArray>(QByteArray("x")));
    }

    void aMissingBlobHasItsOwnError() {
        QCOMPARE(code(read(FolderBlob)), EngineErrorCode::BlobMissing);
        QVERIFY(description(read(FolderBlob)).contains(path(FolderBlob)));
    }

    void aBlobLongerThanTheLimitIsNotRead() {
        QVERIFY(write(FolderBlob, QByteArray(FolderLimit, 'x')));
        QVERIFY(read(FolderBlob));
        QVERIFY(write(QStringLiteral("databases/long"), QByteArray(FolderLimit + 1, 'x')));
        QCOMPARE(code(read(QStringLiteral("databases/long"))), EngineErrorCode::BlobRefused);
        // Nobody has so much memory.
        QFile huge(path(QStringLiteral("databases/huge")));
        QVERIFY(huge.open(QIODevice::WriteOnly));
        QVERIFY(huge.resize(qint64(1) << 40));
        QCOMPARE(code(read(QStringLiteral("databases/huge"))), EngineErrorCode::BlobRefused);
        QVERIFY(description(read(QStringLiteral("databases/huge")))
                    .contains(QStringLiteral("too large")));
        // Nor does it overflow the size of the store.
        std::promise<QVSyncStoreCheck> found;
        m_store->checkWithCompletionHandler(
            [&](const QVSyncStoreCheck &check) { found.set_value(check); });
        QCOMPARE_LE(found.get_future().get().size.value(), (1LL << 30) + 2 * FolderLimit + 1);
    }

    void onlyPlainFilesAreRead() {
        QCOMPARE(
            mkfifo(QFile::encodeName(path(QStringLiteral("databases/fifo"))).constData(), 0600), 0);
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("databases/zero"))));
        QVERIFY(QDir().mkdir(path(QStringLiteral("databases/folder"))));
        for (const char *name : {"databases/fifo", "databases/zero", "databases/folder"}) {
            QCOMPARE(code(read(QString::fromLatin1(name))), EngineErrorCode::BlobRefused);
        }
    }

    void noSymbolicLinkIsFollowed() {
        const QString outside = m_host->directory();
        QVERIFY(QDir().mkpath(outside + QStringLiteral("/folder")));
        QFile secret(outside + QStringLiteral("/secret"));
        QVERIFY(secret.open(QIODevice::WriteOnly) && secret.write("secret") == 6);
        secret.close();
        QVERIFY(QFile::link(outside, path(QStringLiteral("transactions/out"))));
        QVERIFY(QFile::link(secret.fileName(), path(QStringLiteral("databases/secret"))));
        QVERIFY(
            QFile::link(outside + QStringLiteral("/new"), path(QStringLiteral("databases/new"))));

        QCOMPARE(code(read(QStringLiteral("databases/secret"))), EngineErrorCode::BlobRefused);
        QCOMPARE(code(read(QStringLiteral("transactions/out/secret"))),
                 EngineErrorCode::BlobRefused);
        QCOMPARE(code(m_store->list(QStringLiteral("transactions/out"), m_future)),
                 EngineErrorCode::BlobRefused);
        QCOMPARE(code(write(QStringLiteral("transactions/out/x"), "x")),
                 EngineErrorCode::BlobRefused);
        QVERIFY(!m_store->remove(QStringLiteral("transactions/out/secret"), m_future));
        QVERIFY(secret.exists());
        QCOMPARE(write(QStringLiteral("databases/new"), "x"),
                 Expected<Written>(Written::AlreadyThere));
        QVERIFY(!QFileInfo::exists(outside + QStringLiteral("/new")));
    }

    void aBlobCanBeRemoved() {
        QVERIFY(write(FolderBlob, "x"));
        QCOMPARE(description(m_store->remove(FolderBlob, m_future)), QString());
        QCOMPARE(code(read(FolderBlob)), EngineErrorCode::BlobMissing);
        QCOMPARE(description(m_store->remove(FolderBlob, m_future)), QString());
        QCOMPARE(description(m_store->remove(QStringLiteral("transactions/none/x"), m_future)),
                 QString());
    }

    void aFolderIsNotRemoved() {
        QVERIFY(write(FolderBlob, "x"));
        QVERIFY(!m_store->remove(FolderBlob.section(u'/', 0, 1), m_future));
        QVERIFY(read(FolderBlob));
    }

    void aCancelledOperationReportsItsCancellation() {
        EngineFuture cancelled;
        cancelled.cancel();
        QCOMPARE(code(m_store->read(FolderBlob, FolderLimit, cancelled)),
                 EngineErrorCode::Cancelled);
        QCOMPARE(code(m_store->writeIfAbsent(FolderBlob, "x", cancelled)),
                 EngineErrorCode::Cancelled);
        QCOMPARE(code(m_store->list(QStringLiteral("databases"), cancelled)),
                 EngineErrorCode::Cancelled);
        QVERIFY(!m_store->remove(FolderBlob, cancelled));
        QVERIFY(!QFileInfo::exists(path(FolderBlob)));
    }

    void aFullVolumeSaysSoAndKeepsNoPartOfTheBlob() {
        const PrivateVolume volume(m_host->directory() + QStringLiteral("/small"), 64 * 1024);
        makePackageOn(m_host->directory() + QStringLiteral("/small"));
        const Expected<Written> result = write(FolderBlob, QByteArray(128 * 1024, 'x'));
        QCOMPARE(code(result), EngineErrorCode::StoreFull);
        QVERIFY(description(result).contains(QStringLiteral("is full")));
        QVERIFY(description(result).contains(path()));
        QVERIFY(result.error().details.endsWith(QStringLiteral(": No space left on device")));
        QCOMPARE(allNames(FolderBlob.section(u'/', 0, 1)), QStringList());
        QCOMPARE(write(FolderBlob, "x"), Expected<Written>(Written::New));
    }

    void aReadOnlyVolumeCanBeReadAndSaysSoWhenWritten() {
        PrivateVolume volume(m_host->directory() + QStringLiteral("/optical"), 1 << 20);
        makePackageOn(m_host->directory() + QStringLiteral("/optical"));
        QVERIFY(write(FolderBlob, "x"));
        volume.makeReadOnly();
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        QVERIFY(read(FolderBlob));
        for (const char *name : {"databases/x", "transactions/22222222/x"}) {
            const Expected<Written> result = write(QString::fromLatin1(name), "x");
            QCOMPARE(code(result), EngineErrorCode::ReadOnly);
            QVERIFY(description(result).contains(QStringLiteral("is read-only")));
        }
        QVERIFY(!m_store->remove(FolderBlob, m_future));
    }

    void aStoreOfAnotherUserReportsAccessDenied() {
        QVERIFY(write(FolderBlob, "x"));
        QVERIFY(QFile::setPermissions(path(QStringLiteral("databases")),
                                      QFileDevice::Permissions(0x5555)));
        const Unprivileged unprivileged;
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        QVERIFY(read(FolderBlob));
        const Expected<Written> result = write(QStringLiteral("databases/x"), "x");
        QCOMPARE(code(result), EngineErrorCode::AccessDenied);
        QVERIFY(description(result).contains(QStringLiteral("do not have permission")));
    }

    void anUnreadableStoreReportsAccessDenied() {
        QVERIFY(QFile::setPermissions(path(QStringLiteral("transactions")),
                                      QFileDevice::Permissions()));
        const Unprivileged unprivileged;
        const QString text = descriptionOfOpening(*m_store);
        QVERIFY(text.contains(QStringLiteral("do not have permission")));
        QVERIFY(text.contains(path(QStringLiteral("transactions"))));
    }

    void aVolumeThatIsNotMountedIsReported() {
        std::optional<PrivateVolume> custom;
        custom.emplace(QStringLiteral("/mnt"), 1 << 20);
        std::optional<PrivateVolume> stick;
        stick.emplace(QStringLiteral("/mnt/stick"), 1 << 20);
        const QString package = makePackageOn(QStringLiteral("/mnt/stick"));
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        stick.reset();
        custom.reset();
        QVERIFY(descriptionOfOpening(*m_store).contains(QStringLiteral("is not mounted")));
        QVERIFY(descriptionOfOpening(*m_store).contains(package));
    }

    void aStoreThatDisappearsWhileInUseReportsAnError() {
        std::optional<PrivateVolume> custom;
        custom.emplace(QStringLiteral("/mnt"), 1 << 20);
        std::optional<PrivateVolume> stick;
        stick.emplace(QStringLiteral("/mnt/stick"), 1 << 20);
        makePackageOn(QStringLiteral("/mnt/stick"));
        QVERIFY(write(FolderBlob, "x"));
        stick.reset();
        custom.reset();
        for (const QString &text :
             {description(read(FolderBlob)), description(write(FolderBlob, "x")),
              description(m_store->list(QStringLiteral("transactions"), m_future))}) {
            QVERIFY2(text.contains(QStringLiteral("is not mounted")), qPrintable(text));
        }

        m_store = storeAt(m_host->directory() + QStringLiteral("/Gone.qvSyncStore"));
        const Expected<QByteArray> result = read(FolderBlob);
        QCOMPARE(code(result), EngineErrorCode::StoreUnreachable);
        QVERIFY(description(result).contains(QStringLiteral("does not exist")));
        QVERIFY(!m_store->remove(FolderBlob, m_future));
    }

    void aPackageOnAPathThroughASymbolicLinkIsFine() {
        const QString link = m_host->directory() + QStringLiteral("/Link.qvSyncStore");
        QVERIFY(QFile::link(path(), link));
        const std::shared_ptr<BlobStore> store = storeAt(link);
        QCOMPARE(descriptionOfOpening(*store), QString());
        QVERIFY(write(FolderBlob, "x"));
        QCOMPARE(store->read(FolderBlob, FolderLimit, m_future),
                 Expected<QByteArray>(QByteArray("x")));
    }

    void aSandboxedProfileReachesGrantedFoldersOnly() {
        EngineSyncPlugin &plugin = m_host->engine().plugin();
        QVERIFY(write(FolderBlob, "x"));
        QVERIFY(plugin.setUsesSandboxedAccess(true));
        const Expected<void> opened = m_store->open(m_future);
        QCOMPARE(code(opened), EngineErrorCode::AccessDenied);
        QVERIFY(description(opened).contains(path()));
        QVERIFY(description(opened).contains(QStringLiteral("Folder Access")));
        for (const QString &text :
             {description(read(FolderBlob)), description(write(QStringLiteral("databases/x"), "x")),
              description(m_store->list(QStringLiteral("databases"), m_future)),
              description(m_store->remove(FolderBlob, m_future))}) {
            QCOMPARE(text, description(opened));
        }
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("databases/x"))));

        plugin.bookmarkURL(Url::fileURL(path()));
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        QVERIFY(read(FolderBlob));
        plugin.removeBookmarkForURL(Url::fileURL(path()));
        QCOMPARE(code(read(FolderBlob)), EngineErrorCode::AccessDenied);
        QVERIFY(plugin.setUsesSandboxedAccess(false));
        QVERIFY(read(FolderBlob));
    }

    void aGrantHoldsForWhatIsInTheFolderAlsoInALaterRun() {
        const QString package = path();
        m_host->engine().plugin().bookmarkURL(Url::fileURL(QFileInfo(package).path()));
        QVERIFY(m_host->engine().plugin().setUsesSandboxedAccess(true));
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        m_store.reset();
        m_host->restart();
        m_store = storeAt(package);
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        m_host->engine().plugin().removeBookmarkForURL(Url::fileURL(QFileInfo(package).path()));
        QVERIFY(!m_store->open(m_future));
    }

    void aGrantHoldsForWholeComponentsOfAPath_data() {
        QTest::addColumn<QString>("granted");
        QTest::addColumn<bool>("isPermitted");
        QTest::newRow("the root") << QStringLiteral("/") << true;
        QTest::newRow("itself") << QStringLiteral("%1/Trip.qvSyncStore") << true;
        QTest::newRow("the folder above") << QStringLiteral("%1") << true;
        QTest::newRow("the folder above, by another way")
            << QStringLiteral("%1/Trip.qvSyncStore/../../granted") << true;
        QTest::newRow("the beginning of its name") << QStringLiteral("%1/Trip") << false;
        QTest::newRow("the beginning of its folder's") << QStringLiteral("%1/../grant") << false;
        QTest::newRow("a folder in it") << QStringLiteral("%1/Trip.qvSyncStore/databases") << false;
        QTest::newRow("nothing there") << QStringLiteral("%1/none") << false;
        QTest::newRow("relative") << QStringLiteral("granted") << false;
    }

    void aGrantHoldsForWholeComponentsOfAPath() {
        QFETCH(QString, granted);
        QFETCH(bool, isPermitted);
        const QTemporaryDir folder;
        const QString place = folder.filePath(QStringLiteral("granted"));
        QVERIFY(QDir().mkpath(place + QStringLiteral("/Trip")));
        QVERIFY(QDir().mkpath(folder.filePath(QStringLiteral("grant"))));
        makePackageOn(place);
        QVERIFY(m_host->engine().plugin().setUsesSandboxedAccess(true));
        m_host->engine().plugin().bookmarkURL(Url::fromString(
            QStringLiteral("file://") + granted.replace(QStringLiteral("%1"), place)));
        QCOMPARE(descriptionOfOpening(*m_store).isEmpty(), isPermitted);
    }

    void nothingLeadsOutOfAGrantedFolder() {
        const QTemporaryDir folder;
        const QString granted = folder.filePath(QStringLiteral("granted"));
        const QString outside = folder.filePath(QStringLiteral("outside"));
        QVERIFY(QDir().mkpath(granted));
        const QString package = makePackageOn(outside);
        QVERIFY(QFile::link(package, granted + QStringLiteral("/Link.qvSyncStore")));
        QVERIFY(QFile::link(outside, granted + QStringLiteral("/folder")));
        EngineSyncPlugin &plugin = m_host->engine().plugin();
        QVERIFY(plugin.setUsesSandboxedAccess(true));
        plugin.bookmarkURL(Url::fileURL(granted));
        for (const char *way : {"/Link.qvSyncStore", "/folder/Trip.qvSyncStore",
                                "/../outside/Trip.qvSyncStore", "/./../outside/Trip.qvSyncStore"}) {
            const auto store = storeAt(granted + QLatin1StringView(way));
            QVERIFY2(descriptionOfOpening(*store).contains(QStringLiteral("has no access")), way);
            QCOMPARE(code(store->writeIfAbsent(FolderBlob, "x", m_future)),
                     EngineErrorCode::AccessDenied);
        }
        // A grant for the way there is one for where it leads.
        plugin.bookmarkURL(Url::fileURL(granted + QStringLiteral("/folder")));
        QCOMPARE(descriptionOfOpening(*m_store), QString());
    }

    void aFolderThatIsPutIntoTheWayLaterIsNotFollowed() {
        const QTemporaryDir folder;
        const QString granted = folder.filePath(QStringLiteral("granted"));
        const QString outside = folder.filePath(QStringLiteral("outside"));
        makePackageOn(outside);
        const QString package = makePackageOn(granted);
        EngineSyncPlugin &plugin = m_host->engine().plugin();
        QVERIFY(plugin.setUsesSandboxedAccess(true));
        plugin.bookmarkURL(Url::fileURL(granted));
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        QVERIFY(QDir(package).removeRecursively());
        QVERIFY(QFile::link(outside + QStringLiteral("/Trip.qvSyncStore"), package));
        QCOMPARE(code(write(FolderBlob, "x")), EngineErrorCode::AccessDenied);
        QVERIFY(!QFileInfo::exists(outside + QStringLiteral("/Trip.qvSyncStore/") + FolderBlob));
    }

    void theProfilesOwnFolderNeedsNoGrant() {
        QVERIFY(m_host->engine().plugin().setUsesSandboxedAccess(true));
        makePackageOn(m_host->directory());
        QCOMPARE(descriptionOfOpening(*m_store), QString());
        makePackageOn(m_host->directory() + QStringLiteral(" 2"));
        QVERIFY(!m_store->open(m_future));
    }

    void thereIsAStoreForEveryURLButItMayBeUnreachable() {
        const auto location = m_host->newLocation(Url());
        const std::shared_ptr<BlobStore> store = location->createBlobStore();
        const QString text =
            QStringLiteral("This location has no address. Remove it and add it again.");
        QCOMPARE(descriptionOfOpening(*store), text);
        QCOMPARE(description(store->list(QStringLiteral("databases"), m_future)), text);
        QCOMPARE(description(store->read(FolderBlob, FolderLimit, m_future)), text);
        QCOMPARE(description(store->writeIfAbsent(FolderBlob, "x", m_future)), text);
        QVERIFY(!store->remove(FolderBlob, m_future));
    }
};

VELMORA_TEST_PROGRAM(FolderStoreTest)(int argumentCount, char **arguments) {
    enterPrivateMounts();
    prepareTestProcess();
    QApplication application(argumentCount, arguments);
    FolderStoreTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}
#include "FolderStoreTest.moc"
