#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Support/FileManagerService.h"
#include "Support/SecretService.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// The command that shows a location's folder in the file manager.
class RevealLocationTest : public QObject {
    Q_OBJECT
    SecretService m_session;
    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<QVSyncLocation> m_location;
    std::unique_ptr<QVSyncPreferences> m_pane;

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }
    void init() {
        m_host = std::make_unique<TestHost>();
        m_location = m_host->addLocation();
        m_pane = std::make_unique<QVSyncPreferences>();
        m_pane->loadMainView();
        m_pane->willSelect();
        m_pane->syncLocationsController()->setSelectionIndexes({});
    }
    void cleanup() {
        m_pane.reset();
        m_location.reset();
        m_host.reset();
    }

    void onlyTheSelectedRowsFolderIsShown() {
        FileManagerService fileManager(m_session.busAddress());
        QSignalSpy shown(&fileManager, &FileManagerService::shown);
        QVERIFY(!m_pane->isRevealableInFinder());
        m_pane->revealInFinder(nullptr);
        m_pane->syncLocationsController()->setSelectionIndexes({0});
        QVERIFY(m_pane->isRevealableInFinder());
        m_pane->revealInFinder(nullptr);
        // Calls arrive in order: one for the first command would be there by then.
        QTRY_VERIFY(!shown.isEmpty());
        QCOMPARE(fileManager.shownFiles(), QStringList{m_location->URL().absoluteString()});
    }

    void aFolderThatDoesNotExistIsNamed() {
        QVERIFY(QDir(m_location->URL().path()).removeRecursively());
        m_pane->syncLocationsController()->setSelectionIndexes({0});
        m_pane->revealInFinder(nullptr);
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        const Error presented = m_host->application().presentedErrors().first();
        QVERIFY2(presented.localizedDescription.startsWith(
                     QStringLiteral("“%1” does not exist. ").arg(m_location->URL().path())),
                 qPrintable(presented.localizedDescription));
        QCOMPARE(presented.recoveryOptions.first().title, QStringLiteral("Edit Location…"));
    }
};

VELMORA_TEST(RevealLocationTest)
#include "RevealLocationTest.moc"
