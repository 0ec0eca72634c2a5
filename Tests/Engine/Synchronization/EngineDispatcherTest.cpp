#include "Engine/Foundation/EngineError.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/InboxUUID.h"
#include "Host/Notifications.h"
#include "Host/QVSyncResult.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString Here = QStringLiteral("Profile");
const QString There = QStringLiteral("Other computer");
const QString UnknownUUID = QStringLiteral("11111111-1111-4111-8111-111111111111");

}  // namespace

class EngineDispatcherTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    QString m_store;

    QVSyncDispatcher *dispatcher() const { return QVSyncPlugin::plugin()->dispatcher(); }
    QString storeFolder() const { return Url::fromString(m_store).path(); }
    QString transactions(const QString &UUID) const {
        return storeFolder() + QStringLiteral("/transactions/") + UUID;
    }
    QStringList transactionNames(const QString &UUID) const {
        return QDir(transactions(UUID)).entryList(QDir::Files);
    }
    QByteArrayList transactionContents(const QString &UUID) const {
        QByteArrayList contents;
        for (const QString &name : transactionNames(UUID)) {
            QFile file(transactions(UUID) + u'/' + name);
            contents.append(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
        }
        return contents;
    }
    void write(const QString &path, const QByteArray &contents) const {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(contents), contents.size());
    }

    /// The location of the test's store, in whichever profile is open.
    std::shared_ptr<QVSyncLocation> location() {
        const auto all = m_host->locations().syncLocations();
        return all.isEmpty() ? m_host->addLocation(m_store) : all.first();
    }
    std::shared_ptr<QVSyncState> state(const QString &UUID, const QString &name = {}) {
        const auto made = location()->addStateForDatabaseWithUUID(UUID, name);
        made->setEnabled(true);
        m_host->save();
        return made;
    }
    void synchronize(const QVSyncStates &states) {
        bool isDone = false;
        dispatcher()->performSynchronizationsWithSynchronizationStates(states,
                                                                       [&] { isDone = true; });
        QTRY_VERIFY(isDone);
    }
    void clean(const std::shared_ptr<QVSyncState> &state) {
        std::atomic<int> calls = 0;
        dispatcher()->cleanRemoteStoreWithSynchronizationState(state, [&] { ++calls; });
        QTRY_COMPARE(calls.load(), 1);
    }
    std::shared_ptr<NoteDatabase> database(const QString &UUID) {
        const auto all = m_host->library().knownDatabases();
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const auto &each) { return each->UUID() == UUID; });
        return found == all.end() ? nullptr : *found;
    }
    static void save(NoteDatabase &database, const QString &title, const QString &text) {
        Note note;
        const QList<Note> notes = database.notes().value();
        for (const Note &each : notes) {
            note = each.title == title ? each : note;
        }
        note.title = title;
        note.text = text;
        note.modified = QDateTime::currentDateTime();
        QVERIFY(database.saveNote(note));
    }
    static QStringList texts(const NoteDatabase &database) {
        QStringList texts;
        const QList<Note> notes = database.notes().value();
        for (const Note &note : notes) {
            texts.append(note.title + u'=' + note.text);
        }
        texts.sort();
        return texts;
    }
    QStringList log() const {
        QStringList log;
        for (const auto &entry : m_host->application().logEntries()) {
            log.append(entry.title + u' ' + entry.info);
        }
        return log;
    }
    /// A database of that name that lies in the store and in this profile.
    std::shared_ptr<NoteDatabase> synchronizedDatabase(const QString &name) {
        const auto made = m_host->addDatabase(name);
        save(*made, QStringLiteral("First"), QStringLiteral("1"));
        synchronize({state(made->UUID(), name)});
        return made;
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_store = m_host->makeSyncStore(QStringLiteral("Shared"));
    }
    void cleanup() { m_host.reset(); }

    void anImportedDatabaseIsOpenAnnouncedAndTheSame() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        const QList<Note> notes = database(UUID)->notes().value();
        m_host->goToComputer(There);
        QVERIFY(!database(UUID));
        QSignalSpy known(&m_host->library(), &NoteLibrary::knownDatabasesChanged);
        QStringList posted;
        NotificationCenter::defaultCenter().addObserver(
            this, QVSyncPluginDidOpenDatabase, [&](const Notification &notification) {
                posted.append(qobject_cast<QVDatabase *>(notification.object)->name());
            });
        synchronize({state(UUID, QStringLiteral("Another name"))});
        NotificationCenter::defaultCenter().removeObserver(this);
        QCOMPARE(known.count(), 1);
        QCOMPARE(posted, QStringList{QStringLiteral("Projects")});
        QVERIFY(database(UUID)->isOpen());
        QCOMPARE(database(UUID)->notes(), notes);
        m_host->restart();
        QCOMPARE(database(UUID)->name(), QStringLiteral("Projects"));
        QCOMPARE(database(UUID)->notes(), notes);
    }

    void aStateFollowsTheNameThatTheLocationKnows() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Notes"))->UUID();
        m_host->renameDatabase(database(UUID), QStringLiteral("Plans"));
        const auto nameOfState = [&] {
            return location()->stateForDatabaseWithUUID(UUID)->databaseName();
        };
        QCOMPARE(nameOfState(), QStringLiteral("Notes"));
        synchronize({location()->stateForDatabaseWithUUID(UUID)});
        QCOMPARE(nameOfState(), QStringLiteral("Plans"));
        m_host->restart();
        QCOMPARE(nameOfState(), QStringLiteral("Plans"));
    }

    void editsOfTwoComputersAreMerged() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        save(*database(UUID), QStringLiteral("Second"), QStringLiteral("2"));
        synchronize({state(UUID)});
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("1, changed there"));
        save(*database(UUID), QStringLiteral("Third"), QStringLiteral("3"));
        m_host->renameDatabase(database(UUID), QStringLiteral("Plans"));
        synchronize({state(UUID)});
        m_host->goToComputer(Here);
        QVERIFY(database(UUID)->removeNote(database(UUID)->notes().value().at(1)));
        QSignalSpy renamed(database(UUID).get(), &QVDatabase::nameChanged);
        synchronize({state(UUID)});
        const QStringList expected{QStringLiteral("First=1, changed there"),
                                   QStringLiteral("Third=3")};
        QCOMPARE(texts(*database(UUID)), expected);
        QCOMPARE(database(UUID)->name(), QStringLiteral("Plans"));
        QCOMPARE(renamed.count(), 1);
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        QCOMPARE(texts(*database(UUID)), expected);
    }

    void jobsOfARemovedLocationStop() {
        QVSyncStates states;
        for (const QString &name : {QStringLiteral("Projects"), QStringLiteral("Recipes")}) {
            const auto made = m_host->addDatabase(name);
            save(*made, QStringLiteral("First"), QStringLiteral("1"));
            states.append(state(made->UUID(), name));
        }
        // The second one waits for the first one.
        bool isDone = false;
        dispatcher()->performSynchronizationsWithSynchronizationStates(states,
                                                                       [&] { isDone = true; });
        m_host->locations().removeObjectFromSyncLocationsAtIndex(0);
        QTRY_VERIFY(isDone);
        for (const auto &state : std::as_const(states)) {
            QCOMPARE(transactionNames(state->databaseUUID()), QStringList());
            QVERIFY(!state->lastSynced().isValid());
        }
        QVERIFY(dispatcher()->activity().isEmpty());
    }

    void conflictingEditsAreBothKept() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("there"));
        synchronize({state(UUID)});
        m_host->goToComputer(Here);
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("here, later"));
        synchronize({state(UUID)});
        const QList<Note> notes = database(UUID)->notes().value();
        QCOMPARE(texts(*database(UUID)), QStringList({QStringLiteral("First (conflict)=there"),
                                                      QStringLiteral("First=here, later")}));
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        QCOMPARE(database(UUID)->notes(), notes);
        // Dealing with the copy leaves the other alone, and everyone hears of it.
        Note copy = notes.at(1);
        copy.title = QStringLiteral("Kept");
        QVERIFY(database(UUID)->saveNote(copy));
        QCOMPARE(copy.UUID, notes.at(1).UUID);
        synchronize({state(UUID)});
        m_host->goToComputer(Here);
        synchronize({state(UUID)});
        QCOMPARE(texts(*database(UUID)),
                 QStringList({QStringLiteral("First=here, later"), QStringLiteral("Kept=there")}));
    }

    void anEditOutlivesADeletionThatHadNotSeenIt() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        QVERIFY(database(UUID)->removeNote(database(UUID)->notes().value().first()));
        synchronize({state(UUID)});
        m_host->goToComputer(Here);
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("changed"));
        synchronize({state(UUID)});
        QCOMPARE(texts(*database(UUID)), QStringList{QStringLiteral("First=changed")});
    }

    void aConflictingEditIsSavedAsASecondNote() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("there"));
        synchronize({state(UUID)});
        m_host->goToComputer(Here);
        Note typed = database(UUID)->notes().value().first();
        synchronize({state(UUID)});
        typed.text = QStringLiteral("typed while that came");
        QVERIFY(database(UUID)->saveNote(typed));
        QCOMPARE(database(UUID)->notes().value().size(), 2);
    }

    void theInboxesOfTwoProfilesAreOneButKeepTheirNames() {
        save(*m_host->inbox(), QStringLiteral("Note"), QStringLiteral("from here"));
        m_host->renameDatabase(m_host->inbox(), QStringLiteral("My inbox"));
        synchronize({state(InboxUUID, QStringLiteral("Inbox"))});
        m_host->goToComputer(There);
        save(*m_host->inbox(), QStringLiteral("Other"), QStringLiteral("from there"));
        synchronize({state(InboxUUID, QStringLiteral("Inbox"))});
        QCOMPARE(texts(*m_host->inbox()), QStringList({QStringLiteral("Note=from here"),
                                                       QStringLiteral("Other=from there")}));
        QCOMPARE(m_host->inbox()->name(), QStringLiteral("Inbox"));
        QCOMPARE(m_host->library().knownDatabases().size(), 1);
    }

    void successIsDatedAtOnceAndNothingElseIsSaved() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto saved = state(made->UUID(), made->name());
        saved->setSyncOnClose(true);
        const QDateTime before = QDateTime::currentDateTime();
        synchronize({saved});
        QVERIFY(saved->lastSynced() >= before);
        const QDateTime date = saved->lastSynced();
        m_host->restart();
        const auto kept = location()->stateForDatabaseWithUUID(made->UUID());
        QCOMPARE(kept->lastSynced(), date);
        QVERIFY(!kept->syncOnClose());
        QCOMPARE(log(),
                 QStringList{QStringLiteral("Sync: “Projects” was synchronized with “Shared”.")});
    }

    void failureIsLoggedAndNotDatedAndTheOthersGoOn() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto good = state(made->UUID(), made->name());
        const auto bad = m_host->addLocation(QStringLiteral("file:///nowhere/Gone.qvSyncStore"))
                             ->addStateForDatabaseWithUUID(made->UUID(), made->name());
        bad->setEnabled(true);
        synchronize({bad, good});
        QVERIFY(!bad->lastSynced().isValid());
        QVERIFY(good->lastSynced().isValid());
        const auto failed = QVSyncResult::of(bad.get());
        QVERIFY(failed && failed->error);
        QCOMPARE(failed->summary, QStringLiteral("not available"));
        QCOMPARE(QStringLiteral("Sync: ") + failed->error->localizedDescription, log().first());
        const auto succeeded = QVSyncResult::of(good.get());
        QVERIFY(succeeded && !succeeded->error);
        QCOMPARE(succeeded->date, good->lastSynced());
        QCOMPARE(log().size(), 2);
        QVERIFY2(
            log().first().startsWith(QStringLiteral("Sync: “Projects” could not be synchronized")),
            qPrintable(log().first()));
    }

    void anUnknownDatabaseIsNotCreated() {
        const auto nowhere = state(UnknownUUID, QStringLiteral("Ghost"));
        synchronize({nowhere});
        QCOMPARE(m_host->library().knownDatabases().size(), 1);
        QVERIFY(!nowhere->lastSynced().isValid());
        QVERIFY(log().first().contains(QStringLiteral("“Ghost” exists neither")));
    }

    void theHandlerComesOnceOnTheMainThreadAndLater() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto one = state(made->UUID(), made->name());
        const auto inbox = state(InboxUUID, QStringLiteral("Inbox"));
        int calls = 0;
        QThread *thread = nullptr;
        dispatcher()->performSynchronizationsWithSynchronizationStates({one, inbox}, [&] {
            ++calls;
            thread = QThread::currentThread();
            QVERIFY(one->lastSynced().isValid() && inbox->lastSynced().isValid());
        });
        QCOMPARE(calls, 0);
        QTRY_COMPARE(calls, 1);
        QCOMPARE(thread, qApp->thread());
        dispatcher()->performSynchronizationsWithSynchronizationStates({}, [&] { ++calls; });
        QCOMPARE(calls, 1);
        QTRY_COMPARE(calls, 2);
    }

    void progressIsReportedDuringTheWork() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        QStringList activities;
        connect(dispatcher(), &QVSyncDispatcher::activityChanged, this,
                [&] { activities.append(dispatcher()->activity()); });
        QCOMPARE(dispatcher()->activity(), QString());
        synchronize({state(made->UUID(), made->name())});
        QCOMPARE(activities.first(), QStringLiteral("Synchronizing “Projects” with “Shared”…"));
        QCOMPARE(activities.last(), QString());
        disconnect(dispatcher(), nullptr, this, nullptr);
    }

    void aWaitingJobIsNotQueuedTwice() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto one = state(made->UUID(), made->name());
        dispatcher()->performSynchronizationsWithSynchronizationStates({one});
        dispatcher()->performSynchronizationsWithSynchronizationStates({one});
        synchronize({one});
        QCOMPARE(log().size(), 2);
    }

    void anIdleSynchronizationWritesNothing() {
        const auto made = synchronizedDatabase(QStringLiteral("Projects"));
        const QStringList names = transactionNames(made->UUID());
        QCOMPARE(names.size(), 1);
        synchronize({state(made->UUID())});
        QCOMPARE(transactionNames(made->UUID()), names);
    }

    void aStoreThatLostEverythingIsFilledAgain() {
        const auto made = synchronizedDatabase(QStringLiteral("Projects"));
        QVERIFY(QDir(transactions(made->UUID())).removeRecursively());
        QVERIFY(
            QFile::remove(storeFolder() + QStringLiteral("/databases/%1.json").arg(made->UUID())));
        synchronize({state(made->UUID())});
        m_host->goToComputer(There);
        synchronize({state(made->UUID())});
        QCOMPARE(texts(*database(made->UUID())), QStringList{QStringLiteral("First=1")});
    }

    void cleaningRemovesUnneededOperations() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        save(*database(UUID), QStringLiteral("First"),
             QStringLiteral("never sent before cleaning"));
        m_host->goToComputer(Here);
        for (int i = 2; i < 6; ++i) {
            save(*database(UUID), QStringLiteral("First"), QString::number(i));
            synchronize({state(UUID)});
        }
        QCOMPARE(transactionNames(UUID).size(), 5);
        const QDateTime synchronized = state(UUID)->lastSynced();
        clean(state(UUID));
        QCOMPARE(state(UUID)->lastSynced(), synchronized);
        const QByteArrayList contents = transactionContents(UUID);
        QCOMPARE(contents.size(), 1);
        QCOMPARE(contents.first().count("\"text\""), 1);
        QVERIFY(contents.first().contains("\"text\":\"5\""));
        QCOMPARE(log().last(), QStringLiteral("Sync: “Projects” was cleaned up at “Shared”."));
        clean(state(UUID));
        QCOMPARE(transactionContents(UUID), contents);
        // What was edited elsewhere meanwhile still meets what it was concurrent with, and only
        // that.
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        QCOMPARE(database(UUID)->notes().value().size(), 2);
        QVERIFY(texts(*database(UUID)).join(u' ').contains(QStringLiteral("=5")));
        QVERIFY(texts(*database(UUID)).join(u' ').contains(QStringLiteral("never sent")));
    }

    void cleaningLeavesWhatItCannotRead() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        const QString newer = transactions(UUID) + u'/' + UnknownUUID + QStringLiteral(".json");
        write(newer, "{\"version\":2,\"something\":[]}");
        save(*database(UUID), QStringLiteral("First"), QStringLiteral("2"));
        clean(state(UUID));
        QVERIFY(QFile::exists(newer));
        QCOMPARE(transactionNames(UUID).size(), 2);
        QVERIFY(log().join(u'\n').contains(QStringLiteral("newer version")));
    }

    void aDisabledStateIsNeitherSynchronizedNorCleaned() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto disabled = state(made->UUID(), made->name());
        disabled->setEnabled(false);
        synchronize({disabled});
        clean(disabled);
        QVERIFY(!disabled->lastSynced().isValid());
        QVERIFY(transactionNames(made->UUID()).isEmpty());
        QCOMPARE(log(), QStringList());
    }

    void disablingAStateCancelsItsJobs() {
        const auto first = m_host->addDatabase(QStringLiteral("Projects"));
        const auto second = m_host->addDatabase(QStringLiteral("Recipes"));
        save(*first, QStringLiteral("First"), QStringLiteral("1"));
        save(*second, QStringLiteral("Second"), QStringLiteral("2"));
        const auto running = state(first->UUID(), first->name());
        const auto waiting = state(second->UUID(), second->name());
        bool isDone = false;
        dispatcher()->performSynchronizationsWithSynchronizationStates({running, waiting},
                                                                       [&] { isDone = true; });
        running->setEnabled(false);
        waiting->setEnabled(false);
        QTRY_VERIFY(isDone);
        QVERIFY(dispatcher()->activity().isEmpty());
        QVERIFY(!running->lastSynced().isValid());
        QVERIFY(!waiting->lastSynced().isValid());
        QVERIFY(transactionNames(first->UUID()).isEmpty());
        QVERIFY(transactionNames(second->UUID()).isEmpty());
    }

    void theProgressIsAnnouncedAFewTimesPerSecond() {
        constexpr int Count = 100;
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        for (int i = 0; i < Count; ++i) {
            Note note{{}, QString::number(i), QString(100'000, u'x'), {}};
            QVERIFY(made->saveNote(note));
        }
        QList<QVSyncProgress> seen;
        QList<qint64> times;
        QElapsedTimer clock;
        clock.start();
        const auto record = [&] {
            seen.append(QVSyncProgress::of(dispatcher()));
            times.append(clock.elapsed());
        };
        const auto &engine = dynamic_cast<const EngineDispatcher &>(*dispatcher());
        const auto recording = connect(&engine, &EngineDispatcher::progressChanged, this, record);
        synchronize({state(made->UUID(), made->name())});
        QTRY_COMPARE(seen.last(), QVSyncProgress());
        disconnect(recording);

        QVERIFY(seen.size() > 2);
        QCOMPARE(seen.first().phase, QVSyncProgress::Phase::Preparing);
        QCOMPARE(seen.first().activity, QStringLiteral("Synchronizing “Projects” with “Shared”…"));
        // The name of the database is a change, too.
        constexpr int Changes = Count + 1;
        bool hasWritten = false;
        for (qsizetype i = 0; i < seen.size(); ++i) {
            QVERIFY(seen[i].done <= seen[i].total);
            hasWritten = hasWritten || (seen[i].phase == QVSyncProgress::Phase::Writing &&
                                        seen[i].total == Changes);
            // A timer may end a little early.
            QVERIFY(i == 0 || times[i] - times[i - 1] >= 90);
        }
        QVERIFY(hasWritten);
    }

    void cleaningAFailingStoreCallsItsHandlerOnce() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto gone = m_host->addLocation(QStringLiteral("file:///nowhere/Gone.qvSyncStore"))
                              ->addStateForDatabaseWithUUID(made->UUID(), made->name());
        gone->setEnabled(true);
        clean(gone);
        clean(state(UnknownUUID, QStringLiteral("Ghost")));
        QCOMPARE(log().size(), 2);
        QVERIFY(log().first().contains(QStringLiteral("could not be cleaned up")));
        QVERIFY(log().last().contains(QStringLiteral("not on this computer")));
    }

    void hostileRecordsAreReportedOneByOneAndTheRestIsSynchronized() {
        m_host->leaveUnverified("the store keeps files that are no records");
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        const QString folder = transactions(UUID) + u'/';
        const auto name = [&](int i) {
            return folder + QStringLiteral("11111111-1111-4111-8111-%1.json")
                                .arg(i, 12, 10, QLatin1Char('0'));
        };
        const QByteArray sound = transactionContents(UUID).first();
        write(name(1), "not JSON");
        write(name(2), QByteArray(200000, '['));
        write(name(3), sound.chopped(20));
        write(name(4), "{\"version\":9223372036854775808}");
        QVERIFY(QDir().mkdir(name(5)));
        QVERIFY(QFile::link(m_host->directory() + QStringLiteral("/profile.sqlite"), name(6)));
        write(folder + QStringLiteral("a%2F..%2Fprofile.json"), "{\"version\":1}");
        QFile large(name(7));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(3LL << 30));
        write(folder + QStringLiteral("letter.txt"), "none of ours");
        m_host->goToComputer(There);
        const qsizetype before = log().size();
        synchronize({state(UUID)});
        QCOMPARE(texts(*database(UUID)), QStringList{QStringLiteral("First=1")});
        QVERIFY(state(UUID)->lastSynced().isValid());
        const QStringList told = log().mid(before);
        QVERIFY2(told.size() == 9, qPrintable(told.join(u'\n')));
        for (int i = 1; i <= 7; ++i) {
            QCOMPARE(told.filter(QFileInfo(name(i)).fileName()).size(), 1);
        }
    }

    void manyProblemsAreReportedInOneEntry() {
        const QString UUID = synchronizedDatabase(QStringLiteral("Projects"))->UUID();
        for (int i = 0; i < 22; ++i) {
            write(transactions(UUID) + QStringLiteral("/11111111-1111-4111-8111-%1.json")
                                           .arg(i, 12, 10, QLatin1Char('0')),
                  "not JSON");
        }
        m_host->goToComputer(There);
        const qsizetype before = log().size();
        bool isDone = false;
        dispatcher()->performSynchronizationsWithSynchronizationStates({state(UUID)},
                                                                       [&] { isDone = true; });
        QTRY_VERIFY(isDone);
        const QStringList told = log().mid(before);
        QVERIFY2(told.size() == 22, qPrintable(told.join(u'\n')));
        QCOMPARE(told.filter(QStringLiteral("2 more items")).size(), 1);
    }

    void aDatabaseWhoseNameIsAPathIsRefused() {
        const auto before = QDir(storeFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        synchronize({state(QStringLiteral("../../Profile"), QStringLiteral("Evil"))});
        QCOMPARE(m_host->library().knownDatabases().size(), 1);
        QVERIFY(log().first().contains(QStringLiteral("“../../Profile”")));
        QCOMPARE(QDir(storeFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
    }

    void aRecordOfADatabaseFollowsItsNameAndIsRepaired() {
        const auto made = synchronizedDatabase(QStringLiteral("Projects"));
        const QString record =
            storeFolder() + QStringLiteral("/databases/%1.json").arg(made->UUID());
        const auto contents = [&] {
            QFile file(record);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        m_host->renameDatabase(made, QStringLiteral("Plans"));
        synchronize({state(made->UUID())});
        QVERIFY(contents().contains("\"Plans\""));
        write(record, "damaged");
        synchronize({state(made->UUID())});
        QVERIFY(contents().contains("\"Plans\""));
        write(record, "{\"version\":2}");
        synchronize({state(made->UUID())});
        QCOMPARE(contents(), QByteArray("{\"version\":2}"));
    }

    void openingAndClosingSynchronizeWhereThatIsAskedFor() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        const auto one = state(made->UUID(), made->name());
        m_host->closeDatabase(made);
        m_host->openDatabase(made);
        QCOMPARE(dispatcher()->activity(), QString());
        one->setSyncOnClose(true);
        m_host->closeDatabase(made);
        QTRY_COMPARE(log().size(), 1);
        m_host->openDatabase(made);
        QCOMPARE(dispatcher()->activity(), QString());
        one->setSyncOnOpen(true);
        m_host->closeDatabase(made);
        QTRY_COMPARE(log().size(), 2);
        m_host->openDatabase(made);
        QTRY_COMPARE(log().size(), 3);
        one->setEnabled(false);
        m_host->closeDatabase(made);
        QCOMPARE(dispatcher()->activity(), QString());
    }

    void databasesThatAreOpenWhenTheProfileIsOpenedCountAsOpened() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        state(made->UUID(), made->name())->setSyncOnOpen(true);
        state(InboxUUID, QStringLiteral("Inbox"))->setSyncOnOpen(true);
        m_host->save();
        m_host->restart();
        QTRY_COMPARE(log().size(), 2);
        QVERIFY(location()->stateForDatabaseWithUUID(InboxUUID)->lastSynced().isValid());
    }

    void quittingInTheMiddleLosesNothing() {
        const auto made = m_host->addDatabase(QStringLiteral("Projects"));
        for (int i = 0; i < 200; ++i) {
            save(*made, QStringLiteral("Note %1").arg(i), QString(5000, u'x'));
        }
        const QString UUID = made->UUID();
        for (int steps = 0; steps < 12; ++steps) {
            dispatcher()->performSynchronizationsWithSynchronizationStates({state(UUID)});
            for (int i = 0; i < steps && !dispatcher()->activity().isEmpty(); ++i) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
            m_host->restart();
        }
        QCOMPARE(database(UUID)->notes().value().size(), 200);
        synchronize({state(UUID)});
        m_host->goToComputer(There);
        synchronize({state(UUID)});
        QCOMPARE(database(UUID)->notes().value().size(), 200);
    }
};

VELMORA_TEST(EngineDispatcherTest)
#include "EngineDispatcherTest.moc"
