#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Plugin/ServedStoreSynchronizer.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/InboxUUID.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

constexpr qsizetype FewDatabases = 4;

}  // namespace

/// What clients can make of a profile by what they write to its served store.
class ServedStoreSynchronizerTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<ServedDatabases> m_served;
    std::unique_ptr<ServedStoreSynchronizer> m_synchronizer;

    QString package() const { return DirectConnectionPackage::pathInProfile(m_host->directory()); }
    EngineDispatcher &dispatcher() {
        return dynamic_cast<EngineDispatcher &>(*m_host->engine().plugin().dispatcher());
    }
    void writeDatabase(const QString &UUID) const {
        QFile file(package() + u'/' + DatabaseRecord::path(UUID));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(DatabaseRecord::encoded(UUID, QStringLiteral("Name"))) > 0);
    }
    void writeDatabases(qsizetype count) const {
        for (qsizetype i = 0; i < count; ++i) {
            writeDatabase(QUuid::createUuid().toString(QUuid::WithoutBraces));
        }
    }
    /// Synchronizes once and waits until that has ended.
    void synchronize() {
        bool isDone = false;
        m_synchronizer->clientWillRead([&] { isDone = true; });
        QTRY_VERIFY(isDone);
        QTRY_VERIFY(dispatcher().activity().isEmpty());
    }
    qsizetype databaseCount() { return m_host->library().knownDatabases().size(); }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        for (const QString &folder :
             {QStringLiteral("/databases"), QStringLiteral("/transactions")}) {
            QVERIFY(QDir().mkpath(package() + folder));
        }
        m_served = std::make_shared<ServedDatabases>(m_host->engine().profile());
        QVERIFY(m_served->load());
        m_synchronizer = std::make_unique<ServedStoreSynchronizer>(
            dispatcher(), m_host->library(), m_host->newLocation(Url::fileURL(package())), m_served,
            FewDatabases);
    }
    void cleanup() {
        m_host.reset();
        m_synchronizer.reset();
    }

    void theDatabasesOfClientsAreAdded() {
        writeDatabases(FewDatabases - 1);
        synchronize();
        QCOMPARE(databaseCount(), FewDatabases);
        QVERIFY(m_host->application().logEntries().isEmpty());
    }

    void noMoreThanAFewDatabasesAreAddedAndTheOthersAreReportedOnce() {
        writeDatabases(FewDatabases + 2);
        for (int i = 0; i < 2; ++i) {
            synchronize();
            QCOMPARE(databaseCount(), FewDatabases);
            QCOMPARE(m_host->application().logEntries().size(), 1);
            const QString told = m_host->application().logEntries().first().info;
            QVERIFY2(told.contains(QStringLiteral("not added: 3.")), qPrintable(told));
        }
        m_host->addDatabase(QStringLiteral("Own"));
        synchronize();
        QCOMPARE(databaseCount(), FewDatabases + 1);
    }

    void filesThatAreNoRecordsOfDatabasesAreIgnored() {
        for (const QString &UUID :
             {QStringLiteral("AAAAAAAA-AAAA-4AAA-8AAA-AAAAAAAAAAAA"),
              QStringLiteral("00000000-0000-0000-0000-000000000000"), QStringLiteral("x")}) {
            writeDatabase(UUID);
        }
        synchronize();
        QCOMPARE(databaseCount(), 1);
        QVERIFY(m_host->application().logEntries().isEmpty());
    }

    void aFolderThatCannotBeReadIsReported() {
        // A file instead of the folder cannot be listed.
        const QString folder = package() + QStringLiteral("/databases");
        QVERIFY(QDir().rmdir(folder));
        QVERIFY(QFile(folder).open(QIODevice::WriteOnly));
        synchronize();
        QCOMPARE(databaseCount(), 1);
        const QString told = m_host->application().logEntries().first().info;
        QVERIFY2(told.contains(QStringLiteral("The folder “%1” cannot be read").arg(folder)),
                 qPrintable(told));
    }

    void aProfileThatServesNothingKeepsNoClientWaiting() {
        QVERIFY(m_served->setServed(InboxUUID, false));
        int proceeded = 0;
        for (int i = 0; i < 2; ++i) {
            m_synchronizer->clientWillRead([&] { ++proceeded; });
        }
        QCOMPARE(proceeded, 2);
        synchronize();
        QVERIFY(!QFile::exists(package() + u'/' + DatabaseRecord::path(InboxUUID)));
    }

    void requestsAreCombined() {
        writeDatabases(FewDatabases - 1);
        QSignalSpy activity(&dispatcher(), &QVSyncDispatcher::activityChanged);
        constexpr int clients = 50;
        int proceeded = 0;
        for (int i = 0; i < clients; ++i) {
            m_synchronizer->clientWillRead([&] { ++proceeded; });
            m_synchronizer->clientsDidWrite();
        }
        QTRY_COMPARE(proceeded, clients);
        QTRY_VERIFY(dispatcher().activity().isEmpty());
        // Each database is synchronized for the first client and for all others together, and
        // announced when it is requested and when it is done.
        QVERIFY2(activity.count() <= 4 * FewDatabases,
                 qPrintable(QString::number(activity.count())));
    }
};

VELMORA_TEST(ServedStoreSynchronizerTest)
#include "ServedStoreSynchronizerTest.moc"
