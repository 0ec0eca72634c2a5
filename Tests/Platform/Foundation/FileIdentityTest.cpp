#include "Platform/Foundation/FileIdentity.h"

#include <sys/syscall.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <cerrno>

#include "Platform/Foundation/SystemError.h"
#include "Support/FailingSystemCall.h"
#include "Support/TestMain.h"

class FileIdentityTest : public QObject {
    Q_OBJECT
private:
    const QTemporaryDir m_folder;

    QString path(const char *name) const { return m_folder.filePath(QLatin1StringView(name)); }
    QString makeFile(const char *name) const {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
    }
    static std::optional<FileIdentity> identity(const QString &path) {
        return FileIdentity::of(path).value();
    }

private Q_SLOTS:
    void aFileKeepsItsIdentityWhenItIsMoved() {
        const auto file = identity(makeFile("file"));
        QVERIFY(file);
        QVERIFY(QFile::rename(path("file"), path("moved")));
        QCOMPARE(identity(path("moved")), file);
        QVERIFY(identity(makeFile("file")) != file);
        QVERIFY(QFile::link(path("moved"), path("link")));
        QCOMPARE(identity(path("link")), file);
    }

    void nothingHasNoIdentity() {
        makeFile("a file");
        QCOMPARE(identity(path("missing")), std::nullopt);
        QCOMPARE(identity(path("missing/file")), std::nullopt);
        QCOMPARE(identity(path("a file/file")), std::nullopt);
    }

    void aFailureIsNotTakenForNothing() {
        const QString file = makeFile("unreachable");
        for (const int number : {EACCES, EIO}) {
            Expected<std::optional<FileIdentity>> found;
            runWithFailingSystemCall(SYS_newfstatat, number,
                                     [&] { found = FileIdentity::of(file); });
            QVERIFY(!found);
            QCOMPARE(found.error(),
                     systemError(number, QStringLiteral("“%1” cannot be reached. Check the "
                                                        "permissions of the folders that contain "
                                                        "it and its disk.")
                                             .arg(file)));
        }
    }
};

VELMORA_TEST(FileIdentityTest)
#include "FileIdentityTest.moc"
