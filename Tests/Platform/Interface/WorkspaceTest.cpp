#include "Platform/Interface/Workspace.h"

#include <QtGui/QDesktopServices>
#include <QtGui/QPixmap>

#include "Support/FileManagerService.h"
#include "Support/SecretService.h"
#include "Support/TestMain.h"

class WorkspaceTest : public QObject {
    Q_OBJECT
    SecretService m_session;
    QList<QUrl> m_opened;

    Q_INVOKABLE void open(const QUrl &address) { m_opened.append(address); }

private Q_SLOTS:
    void theFileManagerIsAskedToShowAFileSelected() {
        FileManagerService fileManager(m_session.busAddress());
        QSignalSpy shown(&fileManager, &FileManagerService::shown);
        Workspace::selectFile(QStringLiteral("/home/anna/My Store.qvSyncStore"));
        QVERIFY(shown.wait());
        QCOMPARE(fileManager.shownFiles(),
                 QStringList{QStringLiteral("file:///home/anna/My%20Store.qvSyncStore")});
    }

    void withoutAFileManagerServiceTheFolderIsOpened() {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
        Workspace::selectFile(QStringLiteral("/home/anna/My Store.qvSyncStore"));
        QTRY_COMPARE(m_opened, QList<QUrl>{QUrl(QStringLiteral("file:///home/anna"))});
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    }

    void filesThatAreNotThereHaveAnIconToo() {
        QVERIFY(!Workspace::iconForFile(QStringLiteral("/nowhere")).isNull());
        QVERIFY(!Workspace::iconForFile(QDir::tempPath()).isNull());
    }
};

VELMORA_TEST(WorkspaceTest)
#include "WorkspaceTest.moc"
