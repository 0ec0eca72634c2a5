#include "Engine/Notes/RemovalForecast.h"

#include <QtCore/QUuid>

#include "Application/Interface/RemovalDecider.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/FailingTable.h"
#include "Support/Failure.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// A synchronization that would remove many notes waits for the user's decision.
class RemovalTest : public QObject {
    Q_OBJECT
private:
    const QString m_here = QStringLiteral("Profile");
    const QString m_there = QStringLiteral("Other");
    std::unique_ptr<TestHost> m_host;
    MemoryStore::Blobs m_blobs;

    std::shared_ptr<NoteDatabase> inbox() const { return m_host->inbox(); }
    const ProfileDatabase &profile() const { return m_host->engine().profile(); }
    const NoteLog &log() const { return m_host->library().synchronizedDatabase(InboxUUID)->log(); }

    void addNotes(int count, const QString &text = QStringLiteral("text")) const {
        for (int i = 0; i < count; ++i) {
            Note note{{}, QString::number(i), text, {}};
            QVERIFY(inbox()->saveNote(note));
        }
    }
    QStringList titles() const {
        QStringList titles;
        const QList<Note> notes = inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        return titles;
    }

    static StoreSession::Subject subject(const QString &store = QStringLiteral("store")) {
        return {InboxUUID, QStringLiteral("Inbox"), store, QStringLiteral("Home")};
    }
    qint64 rowsWritten() const {
        return profile().value(QStringLiteral("SELECT total_changes()")).value().toLongLong();
    }

    struct Run {
        Expected<void> result;
        std::optional<StoreSession::Removal> removal;
    };
    template <class Session = SyncSession>
    Run run(const SyncSession::Decision &decision = {},
            const StoreSession::Subject &subject = RemovalTest::subject()) {
        Session session(profile(), m_host->library(), subject);
        if constexpr (std::is_same_v<Session, SyncSession>) {
            session.setDecision(decision);
        }
        MemoryStore store(m_blobs);
        const Expected<void> result = runSession(session, store);
        return {result, session.undecidedRemoval()};
    }
    /// Synchronizes again with a decision about what the first attempt would remove.
    Run decide(RemovalDecision decision) {
        const Run undecided = run();
        return undecided.removal ? run({undecided.removal->UUIDs, decision}) : undecided;
    }

    /// Performs the steps of `session` until something of the database is superseded.
    void beginToSupersede(SyncSession &session, MemoryStore::Blobs &blobs) const {
        MemoryStore store(blobs);
        const EngineFuture future;
        const QSet<OperationId> superseded = log().supersededIds().value();
        while (log().supersededIds().value() == superseded) {
            QVERIFY(!session.isDone());
            QVERIFY(session.accessStore(store, future));
            QVERIFY(session.accessProfile());
        }
    }
    /// Answers that the notes are kept, and ends the session when some of them are, as the end of
    /// the program does.
    void keepSome() {
        const Run undecided = run();
        QVERIFY(undecided.removal);
        SyncSession session(profile(), m_host->library(), subject());
        session.setDecision({undecided.removal->UUIDs, RemovalDecision::Keep});
        beginToSupersede(session, m_blobs);
    }
    qint64 rememberedAnswers() const {
        return profile()
            .value(QStringLiteral("SELECT count(*) FROM settings WHERE key LIKE 'kept %'"))
            .value()
            .toLongLong();
    }

    /// Returns the name of the record.
    QString write(const Transaction &transaction) {
        const QString name = QStringLiteral("transactions/@inbox/%1.json")
                                 .arg(QUuid::createUuid().toString(QUuid::WithoutBraces));
        m_blobs[name] = transaction.encoded();
        return name;
    }
    /// Another computer writes again what the records contained.
    void returnRecords(const MemoryStore::Blobs &records) {
        for (const auto &[name, record] : records) {
            m_blobs[name] = record;
        }
    }
    /// Removes the first `count` notes by records of which each removes at most `each` notes, as
    /// anyone who can write to the store is able to.
    void attack(int count, int each = 1000000) {
        const QList<OperationId> operations = log().operationIds().value();
        for (int i = 0; i < count; i += each) {
            write({{}, operations.mid(i, qMin(each, count - i))});
        }
    }

    /// Returns the state of the inbox at a new location.
    std::shared_ptr<QVSyncState> addEnabledState() const {
        const auto state = m_host->addState(m_host->addLocation(), inbox());
        state->setEnabled(true);
        m_host->save();
        return state;
    }
    /// Synchronizes by the dispatcher and returns what was decided.
    QList<RemovalQuestion> synchronize(const std::shared_ptr<QVSyncState> &state,
                                       RemovalDecision decision = RemovalDecision::Later) const {
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        std::optional<QList<RemovalQuestion>> decided;
        RemovalDecider::of(dispatcher)->synchronize({state}, decision, [&](const auto &all) {
            decided = all;
        });
        [&] { QTRY_VERIFY(decided); }();
        return decided.value_or(QList<RemovalQuestion>());
    }
    /// Does what attack() does for all notes at a location in a folder.
    void attackLocation(const QVSyncLocation &location) const {
        QFile record(location.URL().path() + QStringLiteral("/transactions/@inbox/") +
                     QUuid::createUuid().toString(QUuid::WithoutBraces) + QStringLiteral(".json"));
        QVERIFY(record.open(QIODevice::WriteOnly));
        record.write(Transaction{{}, log().operationIds().value()}.encoded());
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_blobs.clear();
    }
    void cleanup() {
        QCOMPARE(description(decide(RemovalDecision::Keep).result), QString());
        MemoryStore store(m_blobs);
        QCOMPARE(Verification::problems(profile(), m_host->library(), subject(), store),
                 QStringList());
        m_host.reset();
    }

    void oneRecordThatDeletesEverythingChangesNothing() {
        addNotes(40);
        QVERIFY(run().result);
        attack(40);
        Note mine{{}, QStringLiteral("mine"), {}, {}};
        QVERIFY(inbox()->saveNote(mine));
        const MemoryStore::Blobs blobs = m_blobs;
        for (int i = 0; i < 2; ++i) {
            const Run refused = run();
            QCOMPARE(code(refused.result), EngineErrorCode::RemovalUndecided);
            QVERIFY2(description(refused.result).contains(QStringLiteral("40 of 41")),
                     qPrintable(description(refused.result)));
            QCOMPARE(refused.removal->UUIDs.size(), 40);
            QCOMPARE(refused.removal->titles.first(), QStringLiteral("0"));
            QCOMPARE(refused.removal->total, 41);
            QCOMPARE(titles().size(), 41);
            QCOMPARE(m_blobs, blobs);
        }
    }

    void manyRecordsCountTogether() {
        addNotes(40);
        QVERIFY(run().result);
        attack(40, 1);
        QCOMPARE(code(run().result), EngineErrorCode::RemovalUndecided);
        QCOMPARE(titles().size(), 40);
    }

    void theThreshold_data() {
        QTest::addColumn<int>("notes");
        QTest::addColumn<int>("removed");
        QTest::addColumn<bool>("asks");
        QTest::addRow("all of ten") << 10 << 10 << false;
        QTest::addRow("ten of eleven") << 11 << 10 << false;
        QTest::addRow("all of eleven") << 11 << 11 << true;
        QTest::addRow("exactly half") << 22 << 11 << false;
        QTest::addRow("one more than half") << 22 << 12 << true;
        QTest::addRow("more than half, odd") << 21 << 11 << true;
        QTest::addRow("less than half") << 100 << 49 << false;
        QTest::addRow("nothing") << 20 << 0 << false;
    }
    void theThreshold() {
        QFETCH(int, notes);
        QFETCH(int, removed);
        QFETCH(bool, asks);
        addNotes(notes);
        QVERIFY(run().result);
        attack(removed);
        const Run synchronized = run();
        QCOMPARE(!synchronized.result, asks);
        QCOMPARE(titles().size(), asks ? notes : notes - removed);
        QCOMPARE(inbox()->deletedNotes().value().size(), asks ? 0 : removed);
    }

    void notesThatAreReplacedAreNotRemoved() {
        addNotes(20);
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        const QList<Note> notes = inbox()->notes().value();
        for (Note note : notes) {
            note.text = QStringLiteral("changed");
            QVERIFY(inbox()->saveNote(note));
            QVERIFY(run().result);
        }
        QVERIFY(run<CleanSession>().result);
        m_host->goToComputer(m_here);
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 20);
    }

    void keptNotesReturnEverywhere() {
        addNotes(20);
        const QStringList all = titles();
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        attack(20);
        // This computer accepts the removal, the other one does not.
        QVERIFY(decide(RemovalDecision::Remove).result);
        QVERIFY(titles().isEmpty());
        QCOMPARE(inbox()->deletedNotes().value().size(), 20);
        QCOMPARE(inbox()->deletedNotes().value().first().place, QStringLiteral("Home"));
        m_host->goToComputer(m_here);
        QVERIFY(decide(RemovalDecision::Keep).result);
        QCOMPARE(titles(), all);
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QStringList returned = titles();
        returned.sort();
        QStringList expected = all;
        expected.sort();
        QCOMPARE(returned, expected);
    }

    void twoComputersThatKeepTheNotesMakeNoDuplicates() {
        addNotes(20);
        const QStringList all = titles();
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        attack(20);
        const MemoryStore::Blobs attacked = m_blobs;
        QVERIFY(decide(RemovalDecision::Keep).result);
        const MemoryStore::Blobs answered = m_blobs;
        // The other one has not seen this answer when it decides.
        m_host->goToComputer(m_here);
        m_blobs = attacked;
        QVERIFY(decide(RemovalDecision::Keep).result);
        m_blobs.insert(answered.begin(), answered.end());
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
    }

    void aRepeatedAttackIsAnsweredByAllComputers() {
        addNotes(20);
        const QStringList all = titles();
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        attack(20);
        QVERIFY(decide(RemovalDecision::Keep).result);
        attack(20);
        QVERIFY(decide(RemovalDecision::Keep).result);
        QCOMPARE(titles(), all);
        // This one has seen neither before.
        m_host->goToComputer(m_here);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
        // Nor has this one, which sees the second attack without the answer.
        attack(20);
        QVERIFY(decide(RemovalDecision::Keep).result);
        QCOMPARE(titles(), all);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
    }

    /// The bytes that bring a note back are the same on all computers, and may be removed before
    /// another computer decides.
    void notesAreKeptThoughTheyWereBroughtBackAndRemovedBefore() {
        addNotes(20);
        const QStringList all = titles();
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        attack(20);
        QVERIFY(decide(RemovalDecision::Keep).result);
        attack(20);
        m_host->goToComputer(m_here);
        QVERIFY(decide(RemovalDecision::Keep).result);
        QCOMPARE(titles(), all);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
    }

    void manyNotesAreKeptInShortSteps() {
        constexpr int count = 1000;
        constexpr qint64 mostRows = 5000;
        Transaction notes;
        for (int i = 0; i < count; ++i) {
            notes.operations.append(
                Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces),
                                QString::number(i), QStringLiteral("text"), 0, {}));
        }
        write(notes);
        QVERIFY(run().result);
        attack(count);
        SyncSession session(profile(), m_host->library(), subject());
        session.setDecision({run().removal->UUIDs, RemovalDecision::Keep});
        MemoryStore store(m_blobs);
        const EngineFuture future;
        qint64 most = 0;
        const qint64 first = rowsWritten();
        while (!session.isDone()) {
            QVERIFY(session.accessStore(store, future));
            const qint64 before = rowsWritten();
            QVERIFY(session.accessProfile());
            most = std::max(most, rowsWritten() - before);
        }
        QCOMPARE_LE(most, mostRows);
        QCOMPARE_GT(rowsWritten() - first, 2 * mostRows);
        QCOMPARE(titles().size(), count);
    }

    void anInterruptedSessionGoesOnKeeping_data() {
        QTest::addColumn<QString>("store");
        QTest::addRow("with the same location") << QStringLiteral("store");
        QTest::addRow("with another one that has the same records") << QStringLiteral("other");
    }
    void anInterruptedSessionGoesOnKeeping() {
        QFETCH(const QString, store);
        // The first step keeps 100: those that remain are too few for another question.
        addNotes(150);
        const QStringList all = titles();
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        m_host->goToComputer(m_here);
        attack(150);
        keepSome();
        m_host->restart();
        QCOMPARE(rememberedAnswers(), 1);
        for (const StoreSession::Subject &each : {subject(store), subject()}) {
            SyncSession session(profile(), m_host->library(), each);
            MemoryStore blobs(m_blobs);
            QCOMPARE(description(runSession(session, blobs)), QString());
            QCOMPARE(titles(), all);
            QVERIFY(inbox()->deletedNotes().value().isEmpty());
            QCOMPARE(rememberedAnswers(), 0);
        }
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
        QVERIFY(run<CleanSession>().result);
        m_host->goToComputer(m_here);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
    }

    void anInterruptedAnswerIsOnlyAboutTheEditsOfThen() {
        addNotes(150);
        QVERIFY(run().result);
        attack(150);
        keepSome();
        // What is removed besides, with so many, is another question, and so is what was kept.
        Note mine{{}, QStringLiteral("mine"), {}, {}};
        QVERIFY(inbox()->saveNote(mine));
        write({{}, log().operationIds().value()});
        const Run again = run();
        QCOMPARE(code(again.result), EngineErrorCode::RemovalUndecided);
        QCOMPARE(again.removal->UUIDs.size(), 151);
        QVERIFY(run({again.removal->UUIDs, RemovalDecision::Remove}).result);
        QVERIFY(titles().isEmpty());
        QCOMPARE(rememberedAnswers(), 0);
        QVERIFY(run().result);
        QVERIFY(titles().isEmpty());
    }

    void aLaterAnswerAtAnotherLocationReplacesAnInterruptedOne() {
        addNotes(600);
        QVERIFY(run().result);
        const MemoryStore::Blobs sound = m_blobs;
        attack(600);
        keepSome();
        // The other location removes first what is renewed already, then what is not.
        const QList<OperationId> current = log().operationIds().value();
        m_blobs = sound;
        write({{}, current.last(100) + current.first(500)});
        const StoreSession::Subject other = subject(QStringLiteral("other"));
        QVERIFY(run({}, other).removal);
        {
            SyncSession session(profile(), m_host->library(), other);
            session.setDecision({run({}, other).removal->UUIDs, RemovalDecision::Remove});
            beginToSupersede(session, m_blobs);
            QCOMPARE(rememberedAnswers(), 0);
        }
        const Run again = run({}, other);
        QVERIFY(again.removal);
        QVERIFY(run({again.removal->UUIDs, RemovalDecision::Remove}, other).result);
        QVERIFY(titles().isEmpty());
    }

    /// Sessions with several locations run at the same time.
    void aSessionForgetsOnlyTheAnswersThatItHasCarriedOut() {
        addNotes(250);
        QVERIFY(run().result);
        const QList<OperationId> operations = log().operationIds().value();
        MemoryStore::Blobs others = m_blobs;
        write({{}, operations.first(130)});
        std::swap(m_blobs, others);
        write({{}, operations.last(130)});
        const Run undecided = run();
        const StoreSession::Subject other = subject(QStringLiteral("other"));
        SyncSession otherSession(profile(), m_host->library(), other);
        std::swap(m_blobs, others);
        otherSession.setDecision({run({}, other).removal->UUIDs, RemovalDecision::Keep});
        std::swap(m_blobs, others);
        beginToSupersede(otherSession, others);
        {
            SyncSession session(profile(), m_host->library(), subject());
            session.setDecision({undecided.removal->UUIDs, RemovalDecision::Keep});
            beginToSupersede(session, m_blobs);
        }
        MemoryStore otherStore(others);
        QCOMPARE(description(runSession(otherSession, otherStore)), QString());
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 250);
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
        QCOMPARE(rememberedAnswers(), 0);
    }

    void anAnswerThatAnEarlierVersionHasRememberedIsCarriedOut() {
        addNotes(150);
        QVERIFY(run().result);
        attack(150);
        keepSome();
        QVERIFY(profile().run(
            QStringLiteral("UPDATE settings SET key = key || 'store' WHERE key LIKE 'kept %'")));
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 150);
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
        QCOMPARE(rememberedAnswers(), 0);
    }

    void anAnswerIsForgottenIfNothingIsRemovedAnyMore() {
        addNotes(150);
        QVERIFY(run().result);
        const MemoryStore::Blobs sound = m_blobs;
        attack(150);
        keepSome();
        m_blobs = sound;
        QVERIFY(run().result);
        QCOMPARE(rememberedAnswers(), 0);
        QCOMPARE(titles().size(), 150);
    }

    void anInterruptedAnswerHoldsForARecordThatCannotBeReadForAWhile_data() {
        QTest::addColumn<QByteArray>("meanwhile");
        QTest::addRow("damaged") << QByteArrayLiteral("damaged");
        QTest::addRow("of a later version") << QByteArrayLiteral("{\"version\": 2}");
        QTest::addRow("not returned") << MemoryStore::Withheld;
    }
    void anInterruptedAnswerHoldsForARecordThatCannotBeReadForAWhile() {
        QFETCH(const QByteArray, meanwhile);
        addNotes(150);
        QVERIFY(run().result);
        const MemoryStore::Blobs before = m_blobs;
        attack(150);
        const MemoryStore::Blobs sound = m_blobs;
        keepSome();
        m_host->restart();
        for (auto &[name, record] : m_blobs) {
            if (!before.contains(name)) {
                record = meanwhile;
            }
        }
        // The first one moves a damaged record, which the second one does not find any more.
        QVERIFY(run().result);
        QVERIFY(run().result);
        QCOMPARE(rememberedAnswers(), 0);
        returnRecords(sound);
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 150);
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
    }

    /// Those whose removal is not read then would be too few for another question.
    void anAnswerHoldsForAllNotesThatTheQuestionHasListed_data() {
        QTest::addColumn<int>("firstUnread");
        QTest::addColumn<bool>("isDamaged");
        QTest::addRow("one record is damaged") << 1 << true;
        QTest::addRow("one record is missing") << 1 << false;
        QTest::addRow("all records are damaged") << 0 << true;
        QTest::addRow("all records are missing") << 0 << false;
    }
    void anAnswerHoldsForAllNotesThatTheQuestionHasListed() {
        QFETCH(const int, firstUnread);
        QFETCH(const bool, isDamaged);
        addNotes(50);
        const QStringList all = titles();
        QVERIFY(run().result);
        const QList<OperationId> operations = log().operationIds().value();
        const QStringList records{write({{}, operations.mid(0, 25)}),
                                  write({{}, operations.mid(25, 8)})};
        const MemoryStore::Blobs sound = m_blobs;
        const Run undecided = run();
        QCOMPARE(undecided.removal->UUIDs.size(), 33);
        for (const QString &name : records.mid(firstUnread)) {
            if (isDamaged) {
                m_blobs[name] = "damaged";
            } else {
                m_blobs.erase(name);
            }
        }
        QVERIFY(run({undecided.removal->UUIDs, RemovalDecision::Keep}).result);
        QCOMPARE(rememberedAnswers(), 0);
        returnRecords(sound);
        QVERIFY(run().result);
        QCOMPARE(titles(), all);
        QVERIFY(inbox()->deletedNotes().value().isEmpty());
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 50);
    }

    void aNoteThatWasEditedMeanwhileIsNotKeptBesideItsEdit() {
        addNotes(20);
        QVERIFY(run().result);
        attack(20);
        const Run undecided = run();
        const Operation before =
            log().firstOperations(log().operationIds().value()).value().operations.first();
        write({{Operation::make(before.note, before.title, QStringLiteral("edited"),
                                before.modified, {before.id})},
               {}});
        QVERIFY(run({undecided.removal->UUIDs, RemovalDecision::Keep}).result);
        QCOMPARE(titles().size(), 20);
        QCOMPARE(inbox()->countOfConflicts().value(), 0);
        const QList<Note> notes = inbox()->notes().value();
        QVERIFY(std::any_of(notes.begin(), notes.end(),
                            [](const Note &note) { return note.text == u"edited"; }));
    }

    /// The profile keeps what is superseded as earlier versions, however small the record is.
    void largeTextsAreSupersededInShortSteps_data() {
        QTest::addColumn<bool>("byOperation");
        QTest::addRow("by the record") << false;
        QTest::addRow("by one operation") << true;
    }
    void largeTextsAreSupersededInShortSteps() {
        QFETCH(const bool, byOperation);
        constexpr qsizetype size = 1 << 19;
        const QString note = QUuid::createUuid().toString(QUuid::WithoutBraces);
        Transaction edits;
        for (int i = 0; i < 20; ++i) {
            edits.operations.append(
                Operation::make(note, QString::number(i), QString(size, u'x'), i, {}));
        }
        write(edits);
        QVERIFY(run().result);
        const QList<OperationId> superseded = log().operationIds().value().mid(1);
        if (byOperation) {
            const Operation last = Operation::make(note, QStringLiteral("last"), {}, 1, superseded);
            write({{last}, {}});
        } else {
            write({{}, superseded});
        }
        SyncSession session(profile(), m_host->library(), subject());
        MemoryStore store(m_blobs);
        const EngineFuture future;
        const auto kept = [this] {
            return profile()
                .value(QStringLiteral("SELECT bytes FROM size_of_versions"))
                .value()
                .toLongLong();
        };
        qint64 most = 0;
        while (!session.isDone()) {
            QVERIFY(session.accessStore(store, future));
            const qint64 before = kept();
            QVERIFY(session.accessProfile());
            most = std::max(most, kept() - before);
        }
        QCOMPARE_GT(kept(), 19 * size);
        QCOMPARE_LT(most, 2 * size);
        QCOMPARE(titles().size(), byOperation ? 2 : 1);
        QCOMPARE(Verification::problems(profile(), m_host->library(), subject(), store),
                 QStringList());
    }

    /// The answers to removals follow from the note, so a store can supersede very many of them.
    void aLongChainOfRemovedAnswersIsNotFollowed() {
        addNotes(1);
        const QList<Operation> operations =
            log().firstOperations(log().operationIds().value()).value().operations;
        QSet<OperationId> superseded;
        Operation answer = operations.first();
        // Each answer costs a digest of the whole text.
        for (int i = 0; i < 3; ++i) {
            answer = answer.renewed();
            superseded.insert(answer.id);
        }
        QVERIFY(profile().write([&] { return log().renew(operations, superseded); }));
        QCOMPARE(titles(), QStringList{QStringLiteral("0")});
        const OperationId current = log().operationIds().value().first();
        QVERIFY(!superseded.contains(current));
        QVERIFY(current != answer.renewed().id);
    }

    void removedNotesAreRemovedEverywhere() {
        addNotes(20);
        QVERIFY(run().result);
        attack(15);
        QVERIFY(decide(RemovalDecision::Remove).result);
        QCOMPARE(titles().size(), 5);
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        QCOMPARE(titles().size(), 5);
    }

    void decidingLaterAsksAgain() {
        addNotes(20);
        QVERIFY(run().result);
        attack(20);
        QCOMPARE(code(decide(RemovalDecision::Later).result), EngineErrorCode::RemovalUndecided);
        QCOMPARE(titles().size(), 20);
        QVERIFY(decide(RemovalDecision::Remove).result);
    }

    void aDecisionIsOnlyAboutTheNotesThatWereListed_data() {
        QTest::addColumn<int>("decision");
        QTest::addRow("keep") << static_cast<int>(RemovalDecision::Keep);
        QTest::addRow("remove") << static_cast<int>(RemovalDecision::Remove);
    }
    void aDecisionIsOnlyAboutTheNotesThatWereListed() {
        QFETCH(int, decision);
        addNotes(20);
        QVERIFY(run().result);
        attack(15);
        const Run undecided = run();
        attack(20);
        const Run again = run({undecided.removal->UUIDs, static_cast<RemovalDecision>(decision)});
        QCOMPARE(code(again.result), EngineErrorCode::RemovalUndecided);
        QCOMPARE(again.removal->UUIDs.size(), 20);
        QCOMPARE(titles().size(), 20);
    }

    /// Such records are read twice rather than kept in memory.
    void largeRecordsCountTogetherToo() {
        addNotes(20);
        QVERIFY(run().result);
        m_host->goToComputer(m_there);
        QVERIFY(run().result);
        const QString text(6 << 20, u'x');
        for (int i = 0; i < 3; ++i) {
            Note note{{}, QStringLiteral("large %1").arg(i), text, {}};
            QVERIFY(inbox()->saveNote(note));
        }
        QVERIFY(run().result);
        m_host->goToComputer(m_here);
        attack(20);
        QCOMPARE(code(run().result), EngineErrorCode::RemovalUndecided);
        QCOMPARE(titles().size(), 20);
        QVERIFY(decide(RemovalDecision::Keep).result);
        QCOMPARE(titles().size(), 23);
    }

    void aFailedReadIsAnError_data() {
        QTest::addColumn<QString>("table");
        QTest::addRow("operations") << QStringLiteral("operations");
        QTest::addRow("superseded") << QStringLiteral("superseded");
    }
    void aFailedReadIsAnError() {
        QFETCH(QString, table);
        addNotes(12);
        QVERIFY(run().result);
        RemovalForecast forecast;
        const QString note = inbox()->notes().value().first().UUID;
        forecast.add({{Operation::make(note, {}, {}, {}, log().operationIds().value())}, {}});
        QCOMPARE(forecast.removedNotes(profile(), log().database()).value().size(), 11);
        const QList<Operation> operations =
            log().firstOperations(log().operationIds(note).value()).value().operations;
        const FailingTable failing(profile(), table, FailingTable::Fault::AllRows);
        QCOMPARE(code(forecast.removedNotes(profile(), log().database())),
                 EngineErrorCode::ProfileNotWritten);
        QCOMPARE(code(log().renew(operations, {})), EngineErrorCode::ProfileNotWritten);
        if (table == QStringLiteral("operations")) {
            QCOMPARE(code(log().countOfNotes()), EngineErrorCode::ProfileNotWritten);
            QCOMPARE(code(log().hasMoreNotesThan(1)), EngineErrorCode::ProfileNotWritten);
        }
    }

    void theUserIsAskedOnceAndTheDecisionIsCarriedOut_data() {
        QTest::addColumn<int>("decision");
        QTest::addColumn<int>("left");
        QTest::addRow("keep") << static_cast<int>(RemovalDecision::Keep) << 20;
        QTest::addRow("remove") << static_cast<int>(RemovalDecision::Remove) << 0;
        QTest::addRow("later") << static_cast<int>(RemovalDecision::Later) << 20;
    }
    void theUserIsAskedOnceAndTheDecisionIsCarriedOut() {
        QFETCH(int, decision);
        QFETCH(int, left);
        m_host->application().decideRemovals(static_cast<RemovalDecision>(decision));
        addNotes(20);
        const auto state = addEnabledState();
        QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        synchronize(state);
        const QDateTime before = state->lastSynced();
        attackLocation(*state->destination());
        synchronize(state);
        QCOMPARE(state->lastSynced(), before);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), 1);
        QTRY_VERIFY(dispatcher->activity().isEmpty());
        QTRY_COMPARE(titles().size(), left);
        const RemovalQuestion question = m_host->application().removalQuestions().first();
        QCOMPARE(question.titles.size(), 20);
        QCOMPARE(question.total, 20);
        QCOMPARE(question.database, inbox()->name());
        QVERIFY(!question.location.isEmpty());
        synchronize(state);
        const bool isLater = decision == static_cast<int>(RemovalDecision::Later);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), isLater ? 2 : 1);
        QCOMPARE(titles().size(), left);
        QVERIFY(m_host->application().presentedErrors().isEmpty());
    }

    void anAnswerToAQuestionBeforeTheLocationWasRemovedIsNotThatToALaterOne() {
        m_host->application().leaveRemovalsOpen();
        addNotes(20);
        const auto state = addEnabledState();
        synchronize(state);
        const auto location = state->destination();
        attackLocation(*location);
        synchronize(state);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), 1);
        const auto index = static_cast<int>(m_host->locations().syncLocations().indexOf(location));
        m_host->locations().removeObjectFromSyncLocationsAtIndex(index);
        m_host->save();
        m_host->locations().insertObjectInSyncLocationsAtIndex(location, index);
        m_host->save();
        synchronize(state);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), 2);
        m_host->application().answerFirstOpenRemoval(RemovalDecision::Remove);
        const QVSyncDispatcher *dispatcher = m_host->engine().plugin().dispatcher();
        QVERIFY(dispatcher->activity().isEmpty());
        QCOMPARE(titles().size(), 20);
        m_host->application().answerOpenRemoval(RemovalDecision::Keep);
        QVERIFY(!dispatcher->activity().isEmpty());
        QTRY_VERIFY(dispatcher->activity().isEmpty());
        QCOMPARE(titles().size(), 20);
        synchronize(state);
        QCOMPARE(m_host->application().removalQuestions().size(), 2);
    }

    void keepingNotesThatAShellHasRemovedMeanwhileSaysHowToRestoreThem() {
        m_host->application().leaveRemovalsOpen();
        addNotes(20);
        const auto state = addEnabledState();
        synchronize(state);
        attackLocation(*state->destination());
        synchronize(state);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), 1);
        const QList<RemovalQuestion> decided = synchronize(state, RemovalDecision::Remove);
        QCOMPARE(decided.size(), 1);
        QCOMPARE(decided.first().titles.size(), 20);
        QVERIFY(titles().isEmpty());
        m_host->application().answerOpenRemoval(RemovalDecision::Keep);
        const QList<Error> presented = m_host->application().presentedErrors();
        QCOMPARE(presented.size(), 1);
        QVERIFY2(presented.first().localizedDescription.contains(QStringLiteral("“Deleted Notes”")),
                 qPrintable(presented.first().localizedDescription));
        QTRY_VERIFY(m_host->engine().plugin().dispatcher()->activity().isEmpty());
        QVERIFY(titles().isEmpty());
        QCOMPARE(inbox()->deletedNotes().value().size(), 20);
    }

    void removingNotesThatAShellHasKeptMeanwhileSaysThatTheyAreThere() {
        m_host->application().leaveRemovalsOpen();
        addNotes(20);
        const auto state = addEnabledState();
        synchronize(state);
        attackLocation(*state->destination());
        synchronize(state);
        QTRY_COMPARE(m_host->application().removalQuestions().size(), 1);
        QCOMPARE(synchronize(state, RemovalDecision::Keep).size(), 1);
        m_host->application().answerOpenRemoval(RemovalDecision::Remove);
        QTRY_COMPARE(m_host->application().presentedErrors().size(), 1);
        const QString told = m_host->application().presentedErrors().first().localizedDescription;
        QVERIFY2(told.contains(QStringLiteral("velmora sync --removals keep")), qPrintable(told));
        QCOMPARE(titles().size(), 20);
    }
};

VELMORA_TEST(RemovalTest)
#include "RemovalTest.moc"
