#include "Engine/Plugin/DeletedDatabases.h"

#include <QtTest/QSignalSpy>

#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/Notifications.h"
#include "Host/QVDailySchedule.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/Failure.h"
#include "Support/FileSizeLimit.h"
#include "Support/HostShortcuts.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// Databases that the user deletes: nothing of them is left, unless the user restores them.
class DeletedDatabasesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<NoteDatabase> m_plans;
    std::shared_ptr<NoteDatabase> m_letters;
    std::shared_ptr<QVSyncState> m_state;

    static void addNote(NoteDatabase &database, const QString &title) {
        Note note{.title = title, .text = QStringLiteral("Text of ") + title};
        QVERIFY(database.saveNote(note));
    }
    static QStringList titles(const NoteDatabase &database) {
        QStringList titles;
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        return titles;
    }
    QStringList names() {
        QStringList names;
        for (const auto &database : m_host->library().knownDatabases()) {
            names.append(database->name());
        }
        return names;
    }
    QVariant value(const QString &statement, const QVariantList &values = {}) {
        return m_host->engine().profile().value(statement, values).value();
    }
    /// Returns how many rows of the profile belong to the database with the identifier `id`.
    qint64 rowsOf(qint64 id, const QString &UUID) {
        qint64 rows =
            value(QStringLiteral("SELECT count(*) FROM states WHERE database_uuid = ?"), {UUID})
                .toLongLong();
        rows +=
            value(QStringLiteral("SELECT count(*) FROM settings WHERE key LIKE ?"
                                 " OR key LIKE ? OR key LIKE ? OR key = ?"),
                  {QStringLiteral("lost %1 %").arg(id), QStringLiteral("lastVerified %1 %").arg(id),
                   QStringLiteral("rewritten %1 %").arg(id),
                   QStringLiteral("deletedDatabase ") + UUID})
                .toLongLong();
        for (const char *table : {"operations", "superseded", "known_transactions", "versions",
                                  "counts", "compared_places", "unwritten"}) {
            rows += value(QStringLiteral("SELECT count(*) FROM %1 WHERE database = ?")
                              .arg(QLatin1StringView(table)),
                          {id})
                        .toLongLong();
        }
        return rows + value(QStringLiteral("SELECT count(*) FROM databases WHERE id = ?"), {id})
                          .toLongLong();
    }
    qint64 idOf(const NoteDatabase &database) {
        return value(QStringLiteral("SELECT id FROM databases WHERE uuid = ?"), {database.UUID()})
            .toLongLong();
    }
    EngineDispatcher &dispatcher() {
        return dynamic_cast<EngineDispatcher &>(*m_host->engine().plugin().dispatcher());
    }
    void synchronize() {
        dispatcher().performSynchronizationsWithSynchronizationStates({m_state});
        QTRY_VERIFY(dispatcher().activity().isEmpty());
    }
    DeletedDatabases &deletedDatabases() { return m_host->engine().plugin().deletedDatabases(); }
    void setUndoTime(std::chrono::milliseconds undoTime) {
        deletedDatabases().setUndoTime(undoTime);
    }
    QString package() const { return DirectConnectionPackage::pathInProfile(m_host->directory()); }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_plans = m_host->addDatabase(QStringLiteral("Plans"));
        m_letters = m_host->addDatabase(QStringLiteral("Letters"));
        addNote(*m_plans, QStringLiteral("Shed"));
        addNote(*m_plans, QStringLiteral("Roof"));
        addNote(*m_letters, QStringLiteral("Ida"));
        const auto location = m_host->addLocation(m_host->makeSyncStore(QStringLiteral("Home")));
        m_state = m_host->addState(location, m_plans);
        m_state->setEnabled(true);
        m_state->setSyncOnClose(true);
        m_state->setSchedule(dailySchedule(9, 30));
        m_host->addState(location, m_letters)->setEnabled(true);
        m_host->save();
        synchronize();
    }
    void cleanup() {
        m_plans.reset();
        m_letters.reset();
        m_state.reset();
        m_host.reset();
    }

    void nothingOfADeletedDatabaseIsLeft() {
        const qint64 id = idOf(*m_plans);
        const qint64 other = idOf(*m_letters);
        const QString otherUUID = m_letters->UUID();
        const qint64 othersRows = rowsOf(other, otherUUID);
        QVERIFY(m_plans->removeNote(m_plans->notes().value().first()));
        QVERIFY(rowsOf(id, m_plans->UUID()) > 5);
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
        QTRY_COMPARE(rowsOf(id, m_plans->UUID()), 0);
        QVERIFY(m_host->library().deletedDatabases().isEmpty());
        QVERIFY(!m_host->library().restoreDatabase(m_plans));
        QVERIFY(!m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(
            m_plans->UUID()));
        QCOMPARE(rowsOf(other, otherUUID), othersRows);
        m_host->restart();
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
        QCOMPARE(titles(*m_host->library().knownDatabases().last()),
                 QStringList{QStringLiteral("Ida")});
    }

    void aDeletedDatabaseIsRestoredWithItsNotesTicksAndSchedules() {
        QStringList posted;
        for (const QString &name : {QVSyncPluginDidOpenDatabase, QVSyncPluginDidCloseDatabase}) {
            NotificationCenter::defaultCenter().addObserver(
                this, name,
                [&](const Notification &notification) { posted.append(notification.name); });
        }
        QSignalSpy deleted(&m_host->library(), &NoteLibrary::deletedDatabasesChanged);
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QVERIFY(!m_state->isEnabled());
        QCOMPARE(m_host->library().deletedDatabases(),
                 QList<std::shared_ptr<NoteDatabase>>{m_plans});
        QVERIFY(m_host->library().restoreDatabase(m_plans));
        NotificationCenter::defaultCenter().removeObserver(this);
        QCOMPARE(deleted.size(), 2);
        QCOMPARE(posted, (QStringList{QVSyncPluginDidCloseDatabase, QVSyncPluginDidOpenDatabase}));
        QVERIFY(m_host->library().deletedDatabases().isEmpty());
        QCOMPARE(names().mid(1), (QStringList{QStringLiteral("Plans"), QStringLiteral("Letters")}));
        QVERIFY(m_state->isEnabled());
        QVERIFY(m_state->schedule());
        m_host->restart();
        const auto plans = m_host->library().knownDatabases().at(1);
        QCOMPARE(titles(*plans), (QStringList{QStringLiteral("Shed"), QStringLiteral("Roof")}));
        const auto state =
            m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(plans->UUID());
        QVERIFY(state && state->isEnabled() && state->syncOnClose() && state->schedule());
    }

    void aDatabaseIsForgottenAtTheNextStart() {
        const qint64 id = idOf(*m_plans);
        const QString UUID = m_plans->UUID();
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        // As if the process was killed: nothing else is saved.
        m_host->restart();
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
        QTRY_COMPARE(rowsOf(id, UUID), 0);
        QVERIFY(!m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(UUID));
    }

    void aDatabaseIsErasedInStepsThatTheNextStartContinues() {
        for (int i = 0; i < 20; ++i) {
            addNote(*m_plans, QString::number(i));
        }
        const qint64 id = idOf(*m_plans);
        const QString UUID = m_plans->UUID();
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        const qint64 before = rowsOf(id, UUID);
        for (int i = 0; i < 5; ++i) {
            // As little as possible.
            QCOMPARE(DeletedDatabase::eraseSome(m_host->engine().profile(), UUID,
                                                std::chrono::milliseconds(0))
                         .value(),
                     false);
        }
        QVERIFY(rowsOf(id, UUID) < before);
        QVERIFY(rowsOf(id, UUID) > before / 2);
        QCOMPARE(Verification::problemsOfProfile(m_host->engine()), QStringList());
        m_host->restart();
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
        QTRY_COMPARE(rowsOf(id, UUID), 0);
    }

    void erasingWaitsForTheNextStartIfTheLogCannotBeMoved() {
        const qint64 id = idOf(*m_plans);
        const QString UUID = m_plans->UUID();
        const auto insert = QStringLiteral(
            "INSERT INTO versions (ended, size, database, note_uuid, place, title,"
            " text) WITH RECURSIVE number (n) AS (SELECT 1 UNION ALL SELECT n + 1"
            " FROM number WHERE n < 64) SELECT ?, 1048576, ?,"
            " 'u' || n, '', '', hex(zeroblob(524288)) FROM number");
        QVERIFY(m_host->engine().profile().run(insert, {QDateTime::currentMSecsSinceEpoch(), id}));
        m_host->restart();
        const auto &logged = m_host->application().logEntries();
        const qsizetype before = logged.size();
        qint64 left = 0;
        {
            const FileSizeLimit half(32 << 20);
            setUndoTime(std::chrono::milliseconds(0));
            QVERIFY(m_host->library().deleteDatabase(m_host->library().databaseForUUID(UUID)));
            QTRY_COMPARE_GE(logged.size(), before + 1);
            left = rowsOf(id, UUID);
            QCOMPARE_GT(left, 2);
            // Many times longer than a step.
            QTest::qWait(500);
        }
        QCOMPARE(logged.size(), before + 1);
        QCOMPARE(rowsOf(id, UUID), left);
        m_host->restart();
        QTRY_COMPARE(rowsOf(id, UUID), 0);
    }

    void aDatabaseThatIsImportedAndDeletedAgainCanBeRestored() {
        const QString UUID = m_plans->UUID();
        std::shared_ptr<NoteDatabase> plans;
        connect(&deletedDatabases(), &DeletedDatabases::databaseForgotten, this, [&] {
            setUndoTime(std::chrono::hours(1));
            QVERIFY(m_host->library()
                        .importDatabase(UUID, QStringLiteral("Plans"), std::chrono::hours(1))
                        .value());
            plans = m_host->library().databaseForUUID(UUID);
            addNote(*plans, QStringLiteral("New"));
            QVERIFY(m_host->library().deleteDatabase(plans));
            QVERIFY(deletedDatabases().isErasing());
        });
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(plans);
        QTRY_VERIFY(!deletedDatabases().isErasing());
        QVERIFY(m_host->library().restoreDatabase(plans));
        QCOMPARE(titles(*plans), QStringList{QStringLiteral("New")});
    }

    void whatIsLeftOfADatabaseIsErasedInStepsBeforeItIsImported() {
        const QString UUID = m_plans->UUID();
        const qint64 id = idOf(*m_plans);
        bool isImported = false;
        int steps = 0;
        connect(&deletedDatabases(), &DeletedDatabases::databaseForgotten, this, [&] {
            qint64 rows = rowsOf(id, UUID);
            while (!isImported) {
                // As little as possible.
                isImported =
                    m_host->library()
                        .importDatabase(UUID, QStringLiteral("Plans"), std::chrono::milliseconds(0))
                        .value();
                QCOMPARE(m_host->library().databaseForUUID(UUID) != nullptr, isImported);
                QVERIFY(rowsOf(id, UUID) < rows);
                rows = rowsOf(id, UUID);
                ++steps;
            }
        });
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(isImported);
        QCOMPARE_GT(steps, 2);
        QTRY_VERIFY(!deletedDatabases().isErasing());
        QVERIFY(m_host->library().databaseForUUID(UUID));
    }

    void aDatabaseOfWhichMuchIsLeftIsImported() {
        const QString UUID = m_plans->UUID();
        // More than one step erases.
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("INSERT INTO superseded (database, digest) WITH RECURSIVE numbers (n) AS"
                           " (SELECT 1 UNION ALL SELECT n + 1 FROM numbers WHERE n < 5000)"
                           " SELECT ?, randomblob(16) FROM numbers"),
            {idOf(*m_plans)}));
        connect(&deletedDatabases(), &DeletedDatabases::databaseForgotten, this, [&] {
            m_state = m_host->locations().syncLocations().first()->addStateForDatabaseWithUUID(
                UUID, QStringLiteral("Plans"));
            m_state->setEnabled(true);
            dispatcher().performSynchronizationsWithSynchronizationStates({m_state});
        });
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(m_host->library().databaseForUUID(UUID));
        QTRY_VERIFY(dispatcher().activity().isEmpty());
        QCOMPARE(titles(*m_host->library().databaseForUUID(UUID)).size(), 2);
    }

    void aLocationThatIsInsertedAgainDoesNotBringTheDatabaseBack() {
        const auto location = m_host->locations().syncLocations().first();
        const QString UUID = m_plans->UUID();
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        m_host->save();
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        m_host->locations().insertObjectInSyncLocationsAtIndex(location, 0);
        m_host->save();
        QVERIFY(!location->stateForDatabaseWithUUID(UUID));
        QVERIFY(location->stateForDatabaseWithUUID(m_letters->UUID())->isEnabled());
        dispatcher().performSynchronizationsWithSynchronizationStates(
            location->synchronizationStates());
        QTRY_VERIFY(dispatcher().activity().isEmpty());
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
    }

    void aProfileThatCannotBeWrittenKeepsTheDatabase() {
        m_host->makeSavesFail();
        QVERIFY(!m_host->library().deleteDatabase(m_plans));
        m_host->letSavesPass();
        QCOMPARE(names().mid(1), (QStringList{QStringLiteral("Plans"), QStringLiteral("Letters")}));
        QVERIFY(m_state->isEnabled());
        m_host->restart();
        QCOMPARE(names().size(), 3);
    }

    void aDatabaseThatCannotBeForgottenIsCompleteUntilItIs() {
        const qint64 id = idOf(*m_plans);
        const QString UUID = m_plans->UUID();
        const qint64 before = rowsOf(id, UUID);
        const qsizetype logged = m_host->application().logEntries().size();
        const ProfileDatabase &profile = m_host->engine().profile();
        QVERIFY(
            profile.run(QStringLiteral("CREATE TRIGGER keep BEFORE DELETE ON states BEGIN"
                                       " SELECT raise(ABORT, 'full'); END")));
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(m_host->application().logEntries().size() > logged);
        // With the mark.
        QCOMPARE(rowsOf(id, UUID), before + 1);
        QVERIFY(profile.run(QStringLiteral("DROP TRIGGER keep")));
        QVERIFY(m_host->library().restoreDatabase(m_plans));
        QVERIFY(m_state->isEnabled());
        QCOMPARE(titles(*m_plans), (QStringList{QStringLiteral("Shed"), QStringLiteral("Roof")}));
    }

    void aRunningSynchronizationDoesNotBringTheDatabaseBack() {
        setUndoTime(std::chrono::milliseconds(0));
        for (int i = 0; i < 20; ++i) {
            addNote(*m_plans, QString::number(i));
        }
        dispatcher().performSynchronizationsWithSynchronizationStates({m_state});
        QVERIFY(!dispatcher().activity().isEmpty());
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QVERIFY(dispatcher().activity().isEmpty());
        QTRY_VERIFY(m_host->library().deletedDatabases().isEmpty());
        bool isDone = false;
        const auto letters = m_host->locations().syncLocations().first()->stateForDatabaseWithUUID(
            m_letters->UUID());
        dispatcher().performSynchronizationsWithSynchronizationStates({letters},
                                                                      [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        QCOMPARE(names().mid(1), QStringList{QStringLiteral("Letters")});
    }

    void aDatabaseThatIsImportedAgainIsTheRestoredOne() {
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        m_state->setEnabled(true);
        synchronize();
        QVERIFY(m_host->library().deletedDatabases().isEmpty());
        QCOMPARE(m_host->library().knownDatabases().at(1), m_plans);
        QCOMPARE(titles(*m_plans), (QStringList{QStringLiteral("Shed"), QStringLiteral("Roof")}));
    }

    void aForgottenDatabaseCanBeImported() {
        setUndoTime(std::chrono::milliseconds(0));
        const QString UUID = m_plans->UUID();
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(m_host->library().deletedDatabases().isEmpty());
        m_state = m_host->locations().syncLocations().first()->addStateForDatabaseWithUUID(
            UUID, QStringLiteral("Plans"));
        QVERIFY(!m_state->schedule());
        m_state->setEnabled(true);
        synchronize();
        QCOMPARE(names().mid(1), (QStringList{QStringLiteral("Letters"), QStringLiteral("Plans")}));
        QCOMPARE(titles(*m_host->library().knownDatabases().last()).size(), 2);
    }

    void theServedCopyIsDeletedAndClientsCannotWriteItAgain() {
        const QString record = package() + u'/' + DatabaseRecord::path(m_plans->UUID());
        const QString folder = package() + QStringLiteral("/transactions/") + m_plans->UUID();
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QDir().mkpath(package() + QStringLiteral("/databases")));
        for (const QString &path : {record, folder + QStringLiteral("/a")}) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        const QString excluded = QStringLiteral("SELECT count(*) FROM settings WHERE key = ?");
        const QVariantList key{QStringLiteral("notServed/") + m_plans->UUID()};
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QVERIFY(QFile::exists(record));
        QCOMPARE(value(excluded, key).toInt(), 1);
        QVERIFY(m_host->library().restoreDatabase(m_plans));
        QCOMPARE(value(excluded, key).toInt(), 0);
        QVERIFY(QFile::exists(record));
        setUndoTime(std::chrono::milliseconds(0));
        QVERIFY(m_host->library().deleteDatabase(m_plans));
        QTRY_VERIFY(!QFile::exists(record));
        QTRY_VERIFY(!QFile::exists(folder));
        QCOMPARE(value(excluded, key).toInt(), 1);
    }

    void theInboxIsNotDeleted() {
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 (void)m_host->library().deleteDatabase(m_host->inbox()));
        // Not even by a profile that says so.
        QVERIFY(m_host->engine().profile().run(
            QStringLiteral("INSERT INTO settings VALUES (?, 1)"),
            {QStringLiteral("deletedDatabase ") + m_host->inbox()->UUID()}));
        m_host->restart();
        QCOMPARE(names().size(), 3);
    }
};

VELMORA_TEST(DeletedDatabasesTest)
#include "DeletedDatabasesTest.moc"
