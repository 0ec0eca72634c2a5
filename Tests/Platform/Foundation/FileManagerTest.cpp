#include "Platform/Foundation/FileManager.h"

#include <sys/syscall.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <cerrno>

#include "Platform/Foundation/SystemError.h"
#include "Support/FailingSystemCall.h"
#include "Support/TestMain.h"

using std::filesystem::file_type;

class FileManagerTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const char *name) const { return m_folder->filePath(QLatin1StringView(name)); }
    void makeFile(const char *name) const {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { m_folder.reset(); }

    void aFileExistsUnlessThereIsNone() {
        makeFile("file");
        QVERIFY(QFile::link(path("missing"), path("link")));
        QCOMPARE(FileManager::exists(path("file")).value(), true);
        QCOMPARE(FileManager::exists(m_folder->path()).value(), true);
        QCOMPARE(FileManager::exists(path("link")).value(), true);
        QCOMPARE(FileManager::exists(path("missing")).value(), false);
        QCOMPARE(FileManager::exists(path("file/inner")).value(), false);
        Expected<bool> exists;
        runWithFailingSystemCall(SYS_newfstatat, EIO,
                                 [&] { exists = FileManager::exists(path("file")); });
        QVERIFY(!exists);
        QCOMPARE(exists.error(),
                 systemError(EIO, QStringLiteral("“%1” cannot be reached. Check the permissions of "
                                                 "the folders that contain it and its disk.")
                                      .arg(path("file"))));
    }

    void theSizeOfAFileThatCannotBeReachedIsAnError() {
        makeFile("file");
        const qint64 size = QFileInfo(path("file")).size();
        QCOMPARE(FileManager::size(path("file")).value(), size);
        QCOMPARE(FileManager::size(path("missing")).value(), 0);
        Expected<qint64> found;
        runWithFailingSystemCall(SYS_newfstatat, EIO,
                                 [&] { found = FileManager::size(path("file")); });
        QVERIFY(!found);
    }

    void theNamesAreThoseOfOneType() {
        makeFile("file");
        makeFile(".hidden");
        QVERIFY(QDir().mkdir(path("folder")));
        QVERIFY(QFile::link(path("file"), path("link to a file")));
        QVERIFY(QFile::link(path("folder"), path("link to a folder")));
        auto files = FileManager::names(m_folder->path(), file_type::regular).value();
        files.sort();
        QCOMPARE(files, (QStringList{QStringLiteral(".hidden"), QStringLiteral("file")}));
        QCOMPARE(FileManager::names(m_folder->path(), file_type::directory).value(),
                 QStringList{QStringLiteral("folder")});
    }

    void aMissingFolderHasNoNames() {
        QCOMPARE(FileManager::names(path("missing"), file_type::regular).value(), QStringList());
    }

    void aFolderThatCannotBeReadIsAnError_data() {
        QTest::addColumn<int>("call");
        QTest::addColumn<int>("error");
        QTest::newRow("no permission") << SYS_openat << EACCES;
        QTest::newRow("disk") << SYS_getdents64 << EIO;
    }
    void aFolderThatCannotBeReadIsAnError() {
        QFETCH(const int, call);
        QFETCH(const int, error);
        makeFile("file");
        Expected<QStringList> names;
        runWithFailingSystemCall(
            call, error, [&] { names = FileManager::names(m_folder->path(), file_type::regular); });
        QVERIFY(!names);
        QCOMPARE(names.error(),
                 systemError(error, QStringLiteral("The folder “%1” could not be read. Check its "
                                                   "permissions and its disk.")
                                        .arg(m_folder->path())));
    }

    void aFolderIsRemovedWithWhatItContains() {
        QVERIFY(QDir().mkpath(path("folder/inner")));
        makeFile("folder/inner/file");
        makeFile("other");
        QVERIFY(QFile::link(path("other"), path("folder/link")));
        QVERIFY(FileManager::removeFolder(path("folder")));
        QVERIFY(!QFileInfo::exists(path("folder")));
        QVERIFY(QFileInfo::exists(path("other")));
        QVERIFY(FileManager::removeFolder(path("folder")));
    }

    void aLinkIsRemovedInsteadOfWhatItNames() {
        QVERIFY(QDir().mkdir(path("folder")));
        QVERIFY(QFile::link(path("folder"), path("link")));
        QVERIFY(FileManager::removeFile(path("link")));
        QVERIFY(QFileInfo::exists(path("folder")));
        QVERIFY(!QFileInfo(path("link")).isSymLink());
        QVERIFY(FileManager::removeFile(path("link")));
        QVERIFY(FileManager::removeFile(path("link/file")));
    }

    void aFolderIsNotRemovedAsAFile() {
        QVERIFY(QDir().mkdir(path("folder")));
        QVERIFY(!FileManager::removeFile(path("folder")));
        QVERIFY(QFileInfo::exists(path("folder")));
    }

    void whatCannotBeRemovedIsAnError() {
        makeFile("file");
        QVERIFY(QDir().mkdir(path("folder")));
        Expected<void> file;
        runWithFailingSystemCall(SYS_unlinkat, EACCES,
                                 [&] { file = FileManager::removeFile(path("file")); });
        Expected<void> folder;
        runWithFailingSystemCall(SYS_rmdir, EACCES,
                                 [&] { folder = FileManager::removeFolder(path("folder")); });
        const QString text = QStringLiteral(
            "“%1” could not be removed. Check the permissions of its folder and its disk.");
        QVERIFY(!file && !folder);
        QCOMPARE(file.error(), systemError(EACCES, text.arg(path("file"))));
        QCOMPARE(folder.error(), systemError(EACCES, text.arg(path("folder"))));
        QVERIFY(QFileInfo::exists(path("file")) && QFileInfo::exists(path("folder")));
    }
};

VELMORA_TEST(FileManagerTest)
#include "FileManagerTest.moc"
