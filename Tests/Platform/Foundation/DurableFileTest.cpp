#include "Platform/Foundation/DurableFile.h"

#include <sys/syscall.h>

#include "Platform/Foundation/SystemError.h"
#include "Support/FailingSystemCall.h"
#include "Support/TestMain.h"

/// A change of a file succeeds, or returns the system's error and leaves the file as it was.
class DurableFileTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QByteArray contents(const QString &name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }
    static int number(const Expected<void> &result) {
        return result || result.error().domain != SystemErrorDomain ? 0 : result.error().code;
    }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files); }

private Q_SLOTS:
    void init() { QVERIFY(DurableFile::write(path(QStringLiteral("a")), "before")); }
    void cleanup() {
        for (const QString &name : names()) {
            QVERIFY(QFile::remove(path(name)));
        }
    }

    void aFileIsReplaced() {
        QVERIFY(DurableFile::write(path(QStringLiteral("a")), "after"));
        QCOMPARE(contents(QStringLiteral("a")), "after");
        QCOMPARE(names(), QStringList(QStringLiteral("a")));
        QCOMPARE(
            QFile::permissions(path(QStringLiteral("a"))) & (QFile::ReadGroup | QFile::ReadOther),
            QFile::Permissions());
    }

    void anExistingFileIsNotCreated() {
        const Expected<void> created = DurableFile::create(path(QStringLiteral("a")));
        QCOMPARE(number(created), EEXIST);
        QVERIFY(created.error().localizedDescription.contains(path(QStringLiteral("a"))));
        QVERIFY(!created.error().localizedFailureReason.isEmpty());
        QCOMPARE(contents(QStringLiteral("a")), "before");
    }

    void aWriteThatFailsLeavesTheFile_data() {
        QTest::addColumn<int>("call");
        QTest::addColumn<int>("error");
        QTest::newRow("the new file cannot be created") << int(SYS_openat) << EROFS;
        QTest::newRow("it cannot be written") << int(SYS_write) << ENOSPC;
        QTest::newRow("it cannot be made durable") << int(SYS_fsync) << EIO;
    }
    void aWriteThatFailsLeavesTheFile() {
        QFETCH(int, call);
        QFETCH(int, error);
        Expected<void> written;
        runWithFailingSystemCall(
            call, error, [&] { written = DurableFile::write(path(QStringLiteral("a")), "after"); });
        QCOMPARE(number(written), error);
        QCOMPARE(contents(QStringLiteral("a")), "before");
        QCOMPARE(names(), QStringList(QStringLiteral("a")));
    }

    void aFolderIsNotReplaced() {
        const QString folder = path(QStringLiteral("folder"));
        QVERIFY(QDir().mkdir(folder));
        QCOMPARE(number(DurableFile::write(folder, "x")), EISDIR);
        QCOMPARE(names(), QStringList(QStringLiteral("a")));
        QVERIFY(QDir().rmdir(folder));
    }

    void aCopyHasTheSameContents() {
        const QByteArray large(3 << 20, 'x');
        QVERIFY(DurableFile::write(path(QStringLiteral("a")), large));
        QVERIFY(DurableFile::copy(path(QStringLiteral("a")), path(QStringLiteral("b"))));
        QCOMPARE(contents(QStringLiteral("b")), large);
    }

    void whyACopyFailsIsReported() {
        const QString original = path(QStringLiteral("a"));
        QCOMPARE(number(DurableFile::copy(original, original)), EEXIST);
        QCOMPARE(number(DurableFile::copy(path(QStringLiteral("none")), path(QStringLiteral("b")))),
                 ENOENT);
        Expected<void> copied;
        runWithFailingSystemCall(SYS_read, EIO, [&] {
            copied = DurableFile::copy(original, path(QStringLiteral("c")));
        });
        QCOMPARE(number(copied), EIO);
        QVERIFY(copied.error().localizedDescription.contains(original));
        runWithFailingSystemCall(SYS_write, ENOSPC, [&] {
            copied = DurableFile::copy(original, path(QStringLiteral("d")));
        });
        QCOMPARE(number(copied), ENOSPC);
    }

    void aMissingFileIsNeitherFlushedNorRenamed() {
        const QString none = path(QStringLiteral("none"));
        QCOMPARE(number(DurableFile::flush(none)), ENOENT);
        QCOMPARE(number(DurableFile::rename(none, path(QStringLiteral("a")))), ENOENT);
        QCOMPARE(contents(QStringLiteral("a")), "before");
    }
};

VELMORA_TEST(DurableFileTest)
#include "DurableFileTest.moc"
