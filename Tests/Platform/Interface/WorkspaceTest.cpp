#include "Platform/Interface/Workspace.h"

#include <QtGui/QDesktopServices>
#include <QtGui/QPixmap>

#include "Support/FileManagerService.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

class WorkspaceTest : public QObject {
    Q_OBJECT
    SecretService m_session;
    const QTemporaryDir m_folder;
    QList<QUrl> m_opened;

    /// Makes a folder whose name must be encoded in a URL.
    QString makeStore() const {
        const QString path = m_folder.filePath(QStringLiteral("My Store.qvSyncStore"));
        QDir().mkpath(path);
        return path;
    }

    Q_INVOKABLE void open(const QUrl &address) { m_opened.append(address); }

private Q_SLOTS:
    void theFileManagerIsAskedToShowAFileSelected() {
        FileManagerService fileManager(m_session.busAddress());
        QSignalSpy shown(&fileManager, &FileManagerService::shown);
        Workspace::selectFile(makeStore());
        QTRY_COMPARE(shown.size(), 1);
        QCOMPARE(
            fileManager.shownFiles(),
            QStringList{QStringLiteral("file://%1/My%20Store.qvSyncStore").arg(m_folder.path())});
    }

    void withoutAFileManagerServiceTheFolderIsOpened() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
        Workspace::selectFile(makeStore());
        QTRY_COMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(m_folder.path())});
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void whatDoesNotExistIsNamedInsteadOfShown() {
        FileManagerService fileManager(m_session.busAddress());
        QStringList failures;
        const QString path = m_folder.filePath(QStringLiteral("None.qvSyncStore"));
        Workspace::selectFile(
            path, [&](const Error &error) { failures.append(error.localizedDescription); });
        QTRY_COMPARE(failures,
                     QStringList{QStringLiteral("“%1” does not exist. Check whether it was moved "
                                                "or renamed, and whether its volume is connected.")
                                     .arg(path)});
        QCOMPARE(fileManager.shownFiles(), QStringList());
    }

    void filesThatAreNotThereHaveAnIconToo() {
        QVERIFY(!Workspace::iconForFile(QStringLiteral("/nowhere")).isNull());
        QVERIFY(!Workspace::iconForFile(QDir::tempPath()).isNull());
    }
};

VELMORA_TEST(WorkspaceTest)
#include "WorkspaceTest.moc"
