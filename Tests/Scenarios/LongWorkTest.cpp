#include <QtCore/QRegularExpression>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>

#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/QVSyncDispatcher.h"
#include "Platform/Interface/TableView.h"
#include "Scenarios/Panel.h"
#include "Support/EventTimeout.h"
#include "Support/FaultyProxy.h"
#include "Support/TestHost.h"
#include "Support/WebDAVServer.h"

/// An import and a clean-up show how far they are, and can be stopped at once.
class LongWorkTest : public QObject {
    Q_OBJECT

    std::unique_ptr<WebDAVServer> m_server;
    std::unique_ptr<FaultyProxy> m_proxy;
    std::unique_ptr<TestHost> m_host;
    QString m_UUID;

    QString URLText(quint16 port) const {
        return QStringLiteral("http://localhost:%1/dav/Shared.qvSyncStore").arg(port);
    }
    QVSyncDispatcher &dispatcher() { return *m_host->engine().plugin().dispatcher(); }
    /// Synchronizes the database completely, as an import does.
    void synchronizeAll(quint16 port) {
        const auto location = m_host->addLocation(URLText(port));
        const auto state = location->addStateForDatabaseWithUUID(m_UUID, QStringLiteral("Travel"));
        state->setEnabled(true);
        dispatcher().performSynchronizationsWithSynchronizationStates({state});
        QTRY_VERIFY(state->lastSynced().isValid());
    }
    /// Returns the number of the exchange that reads the third record.
    qint64 thirdRead() const {
        const QByteArrayList exchanges = m_proxy->exchanges();
        int reads = 0;
        for (qsizetype i = 0; i < exchanges.size(); ++i) {
            const bool isRead =
                exchanges.at(i).startsWith("GET ") && exchanges.at(i).contains("/transactions/");
            if (isRead && ++reads == 3) {
                return i + 1;
            }
        }
        return 0;
    }

private Q_SLOTS:
    void initTestCase() { registerSyncPreferencesInterface(); }

    void init() {
        m_server = std::make_unique<WebDAVServer>(
            WebDAVServer::Options{.authentication = WebDAVServer::Authentication::None});
        m_proxy = std::make_unique<FaultyProxy>(m_server->port());
        m_host = std::make_unique<TestHost>();
        const auto database = m_host->addDatabase(QStringLiteral("Travel"));
        m_UUID = database->UUID();
        for (int i = 0; i < 12; ++i) {
            Note note{.title = QString::number(i), .text = QString(500'000, u'x')};
            QVERIFY(database->saveNote(note));
        }
        synchronizeAll(m_server->port());
    }
    void cleanup() {
        m_host.reset();
        m_proxy.reset();
        m_server.reset();
    }

    void anImportShowsHowFarItIsAndStops() {
        m_host->goToComputer(QStringLiteral("Laptop"));
        synchronizeAll(m_proxy->port());
        const qint64 third = thirdRead();
        QVERIFY(third > 0);

        m_host->goToComputer(QStringLiteral("Desk"));
        m_host->addLocation(URLText(m_proxy->port()));
        const Panel panel;
        panel.press("importButton");
        panel.inSheet<TableView>("locationsTable")->selectRow(0);
        panel.inSheet<QPushButton>("continueButton")->click();
        auto *table = panel.inSheet<TableView>("databasesTable");
        QTRY_COMPARE(table->rowCount(), 1);
        QTRY_VERIFY(panel.inSheet<QPushButton>("actionButton")->isVisible());
        table->selectRow(0);
        m_proxy->setFault(FaultyProxy::Fault::Late, third, FaultyProxy::Duration::FromThenOn);
        panel.inSheet<QPushButton>("actionButton")->click();
        QVERIFY(!panel.sheet());
        const QRegularExpression progress(
            QStringLiteral("^Synchronizing “Travel” with “localhost – Shared”… \\d+ of \\d+$"));
        QTRY_VERIFY(m_proxy->hasFailed());
        QTRY_VERIFY(progress.match(panel.text("activityLabel")).hasMatch());
        QVERIFY(panel.find<QProgressBar>("activityBar")->maximum() > 0);
        panel.press("stopButton");
        QCOMPARE(dispatcher().activity(), QString());
        QCOMPARE(panel.text("activityLabel"), QString());
        // The next synchronization completes it.
        m_proxy->setFault(FaultyProxy::Fault::None, 1, FaultyProxy::Duration::Once);
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(m_UUID);
        dispatcher().performSynchronizationsWithSynchronizationStates({state});
        QTRY_VERIFY(state->lastSynced().isValid());
        const auto database = m_host->library().databaseForUUID(m_UUID);
        QCOMPARE(database->notes().value().size(), 12);
    }

    void aCleanUpShowsHowFarItIsAndStops() {
        const auto database = m_host->library().databaseForUUID(m_UUID);
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        synchronizeAll(m_proxy->port());
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(m_UUID);
        // Each becomes a small record.
        for (int i = 0; i < 3; ++i) {
            Note note{.title = QStringLiteral("Small"), .text = QStringLiteral("x")};
            QVERIFY(database->saveNote(note));
            bool isSynchronized = false;
            dispatcher().performSynchronizationsWithSynchronizationStates(
                {state}, [&] { isSynchronized = true; });
            QTRY_VERIFY(isSynchronized);
        }
        const Panel panel;
        Panel::select(Panel::databaseRow(QStringLiteral("Travel")));
        Panel::select(Panel::locationRow(0));
        m_proxy->setFault(FaultyProxy::Fault::Late, 1, FaultyProxy::Duration::FromThenOn, "PUT");
        panel.choose("cleanItem");
        const QRegularExpression progress(
            QStringLiteral("^Cleaning up “Travel” at “localhost – Shared”… \\d+ of \\d+$"));
        QTRY_VERIFY(m_proxy->hasFailed());
        QTRY_VERIFY(progress.match(panel.text("activityLabel")).hasMatch());
        QVERIFY(panel.find<QProgressBar>("activityBar")->maximum() > 0);
        panel.press("stopButton");
        QCOMPARE(dispatcher().activity(), QString());
        QCOMPARE(panel.text("activityLabel"), QString());
        QVERIFY(Panel::warning(Panel::locationRow(0))->isHidden());
        // The next one completes it.
        m_proxy->setFault(FaultyProxy::Fault::None, 1, FaultyProxy::Duration::Once);
        panel.choose("cleanItem");
        QTRY_COMPARE(panel.text("activityLabel"),
                     QStringLiteral("“Travel” was cleaned up at “localhost – Shared”."));
        QCOMPARE(database->notes().value().size(), 15);
    }
};

VELMORA_TEST(LongWorkTest)
#include "LongWorkTest.moc"
