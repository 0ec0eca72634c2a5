#include "Platform/Interface/Workspace.h"

#include <QtDBus/QDBusConnection>
#include <QtGui/QPixmap>

#include "Support/SecretService.h"
#include "Support/TestMain.h"

/// A file manager as far as it can be asked to show files.
class FileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList m_shown;

public Q_SLOTS:
    void ShowItems(const QStringList &URIs, const QString & /*startupId*/) {
        m_shown += URIs;
        Q_EMIT shown();
    }

Q_SIGNALS:
    void shown();
};

class WorkspaceTest : public QObject {
    Q_OBJECT
    SecretService m_session;

private Q_SLOTS:
    void theFileManagerIsAskedToShowAFileSelected() {
        FileManager fileManager;
        QDBusConnection bus =
            QDBusConnection::connectToBus(m_session.busAddress(), QStringLiteral("file manager"));
        QVERIFY(bus.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &fileManager,
                                   QDBusConnection::ExportAllSlots));
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
        QSignalSpy shown(&fileManager, &FileManager::shown);
        Workspace::selectFile(QStringLiteral("/home/anna/My Store.qvSyncStore"));
        QVERIFY(shown.wait());
        QCOMPARE(fileManager.m_shown,
                 QStringList{QStringLiteral("file:///home/anna/My%20Store.qvSyncStore")});
        QDBusConnection::disconnectFromBus(QStringLiteral("file manager"));
    }

    void withoutAFileManagerNothingHappens() { Workspace::selectFile(QStringLiteral("/nowhere")); }

    void filesThatAreNotThereHaveAnIconToo() {
        QVERIFY(!Workspace::iconForFile(QStringLiteral("/nowhere")).isNull());
        QVERIFY(!Workspace::iconForFile(QDir::tempPath()).isNull());
    }
};

VELMORA_TEST(WorkspaceTest)
#include "WorkspaceTest.moc"
