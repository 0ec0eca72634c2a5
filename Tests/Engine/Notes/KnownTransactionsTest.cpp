#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/KnownTransactions.h"
#include "Engine/Synchronization/UnsentChanges.h"
#include "Host/InboxUUID.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

using Contents = KnownTransactions::Contents;

const QString FirstRecord = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a11.json");
const QString SecondRecord = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a12.json");
constexpr qint64 RecordSize = 1000;

OperationId identifier(char each) {
    return QByteArray(Operation::IdentifierSize, each);
}

/// A transaction with the superseded identifiers `from` to `to`.
Transaction superseding(char from, char to) {
    Transaction transaction;
    for (char each = from; each <= to; ++each) {
        transaction.superseded.append(identifier(each));
    }
    return transaction;
}

Transaction manyIdentifiers(int count) {
    Transaction transaction;
    for (int i = 0; i < count; ++i) {
        transaction.superseded.append(
            QByteArray::number(i).rightJustified(Operation::IdentifierSize, '0'));
    }
    return transaction;
}

}  // namespace

class KnownTransactionsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;

    std::shared_ptr<EngineDatabase> database() const {
        return m_host->library().synchronizedDatabase(InboxUUID);
    }
    KnownTransactions known(const QString &store = QStringLiteral("store")) const {
        return {m_host->engine().profile(), store, database()->log().database()};
    }

    const ProfileDatabase &profile() const { return m_host->engine().profile(); }

    static void beginRecording(const KnownTransactions &known) {
        Expected<bool> isForgotten = false;
        while (isForgotten && !*isForgotten) {
            isForgotten = known.restartRecording();
        }
        QVERIFY(isForgotten);
    }
    static KnownTransactions::Unwritten recorded(const KnownTransactions &known) {
        return known.unwritten().value().value();
    }
    /// The store lacks one operation and one superseded identifier, as is recorded.
    void beginComplete() {
        const QList<OperationId> present = database()->log().operationIds().value();
        Transaction written;
        for (const OperationId &each : present) {
            written.operations.append(Operation{each, {}, {}, {}, {}, {}, {}});
        }
        QVERIFY(known().add(FirstRecord, written, RecordSize));
        beginRecording(known());
        QVERIFY(known().setComplete());
        Note note{.title = QStringLiteral("Title")};
        QVERIFY(database()->saveNote(note));
        QVERIFY(database()->log().merge(superseding('a', 'a')));
    }

    /// Forgets the store "store" in steps. Returns how many these were, without the last one.
    int forgetStore(std::chrono::milliseconds stepDuration) const {
        for (int steps = 0;; ++steps) {
            const Expected<bool> isLast = KnownTransactions::forgetSomeOfStore(
                profile(), QStringLiteral("store"), stepDuration);
            if (!isLast || *isLast) {
                return isLast ? steps : -1;
            }
        }
    }

private Q_SLOTS:
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void theContentsOfARecordAreThoseOfAllParts() {
        QVERIFY(known().addPart(FirstRecord, 0, Contents::of(superseding('c', 'd'), 0)));
        QVERIFY(known().addPart(FirstRecord, 1, Contents::of(superseding('e', 'f'), 0)));
        QVERIFY(known().addLastPart(FirstRecord, Contents::of(superseding('a', 'b'), RecordSize)));
        QVERIFY(known().add(SecondRecord, superseding('g', 'g'), RecordSize));
        const auto expected = Contents::of(superseding('a', 'f'), RecordSize);
        QCOMPARE(known().contents(FirstRecord).value(), expected);
        QCOMPARE(known().all().value().value(FirstRecord), expected);
        QCOMPARE(known().all().value().size(), 2);
        QCOMPARE(known().sizes().value(),
                 (QHash<QString, qint64>{{FirstRecord, RecordSize}, {SecondRecord, RecordSize}}));
    }

    void largeRecordsAreKnownWithAllTheirContents() {
        beginRecording(known());
        QVERIFY(known().setComplete());
        const Transaction large = manyIdentifiers(1000);
        for (int i = 0; i < 2; ++i) {
            QVERIFY(known().add(FirstRecord, large, RecordSize));
        }
        QVERIFY(known().isComplete().value());
        QVERIFY(known().addPart(SecondRecord, 0, Contents::of(superseding('a', 'b'), 0)));
        QVERIFY(known().addLastPart(SecondRecord, Contents::of(large, RecordSize)));
        QCOMPARE(known().contents(FirstRecord).value(), Contents::of(large, RecordSize));
        QCOMPARE(known().contents(SecondRecord).value().superseded.size(), 1002);
        QCOMPARE(known().sizes().value(),
                 (QHash<QString, qint64>{{FirstRecord, RecordSize}, {SecondRecord, RecordSize}}));
        QVERIFY(known().remove({FirstRecord, SecondRecord}));
        QCOMPARE(profile().value(QStringLiteral("SELECT count(*) FROM known_transactions")), 0);
    }

    void aRecordWithoutItsLastPartIsNotKnown() {
        QVERIFY(known().addPart(FirstRecord, 0, Contents::of(superseding('a', 'b'), 0)));
        QVERIFY(known().all().value().isEmpty());
        QVERIFY(known().sizes().value().isEmpty());
        QCOMPARE(known().contents(FirstRecord).value(), KnownTransactions::Contents());
    }

    void partsThatWereAddedBeforeAreReplaced() {
        for (int part = 0; part < 3; ++part) {
            QVERIFY(known().addPart(FirstRecord, part, Contents::of(superseding('x', 'z'), 0)));
        }
        QVERIFY(known().addPart(FirstRecord, 0, Contents::of(superseding('a', 'a'), 0)));
        QVERIFY(known().addLastPart(FirstRecord, Contents::of(superseding('b', 'b'), RecordSize)));
        QCOMPARE(known().contents(FirstRecord).value(),
                 Contents::of(superseding('a', 'b'), RecordSize));
    }

    /// Its merge was interrupted, then it was read again and merged at once.
    void aRecordThatIsAddedAsAWholeHasNoPartsOfEarlier() {
        beginRecording(known());
        for (int part = 0; part < 2; ++part) {
            QVERIFY(known().addPart(FirstRecord, part, Contents::of(superseding('x', 'z'), 0)));
        }
        QVERIFY(known().setComplete());
        QVERIFY(known().add(FirstRecord, superseding('a', 'a'), RecordSize));
        QCOMPARE(known().contents(FirstRecord).value(),
                 Contents::of(superseding('a', 'a'), RecordSize));
        QVERIFY(!known().isComplete().value());
    }

    void removingARecordRemovesItsPartsOnly() {
        QVERIFY(known().addPart(FirstRecord, 0, Contents::of(superseding('a', 'a'), 0)));
        QVERIFY(known().addLastPart(FirstRecord, Contents::of(superseding('b', 'b'), RecordSize)));
        QVERIFY(known().add(SecondRecord, superseding('c', 'c'), RecordSize));
        QVERIFY(known().remove({FirstRecord}));
        QCOMPARE(known().sizes().value(), (QHash<QString, qint64>{{SecondRecord, RecordSize}}));
        QVERIFY(known().add(FirstRecord, superseding('d', 'd'), RecordSize));
        QCOMPARE(known().contents(FirstRecord).value(),
                 Contents::of(superseding('d', 'd'), RecordSize));
    }

    void whatIsAddedIsUnwrittenUntilARecordContainsIt() {
        beginRecording(known());
        QVERIFY(!known().hasUnwritten().value());
        QVERIFY(database()->log().merge(superseding('a', 'b')));
        Note note{.title = QStringLiteral("Title")};
        QVERIFY(database()->saveNote(note));
        const OperationId edit = QByteArray::fromHex(note.revision.toLatin1());
        QVERIFY(known().hasUnwritten().value());
        QCOMPARE(recorded(known()).operations, QList{edit});
        QCOMPARE(recorded(known()).superseded, (QSet{identifier('a'), identifier('b')}));
        QVERIFY(known().add(FirstRecord, superseding('a', 'a'), RecordSize));
        QCOMPARE(recorded(known()).superseded, QSet{identifier('b')});
        Transaction written = superseding('b', 'c');
        written.operations = {Operation{edit, {}, {}, {}, {}, {}, {}}};
        QVERIFY(known().addPart(SecondRecord, 0, Contents::of(written, 0)));
        QVERIFY(!known().hasUnwritten().value());
    }

    void anEditThatIsReplacedIsNotUnwritten() {
        beginRecording(known());
        Note note{.title = QStringLiteral("Title")};
        QVERIFY(database()->saveNote(note));
        note.text = QStringLiteral("Text");
        QVERIFY(database()->saveNote(note));
        QCOMPARE(recorded(known()).operations,
                 QList{OperationId(QByteArray::fromHex(note.revision.toLatin1()))});
        QVERIFY(database()->log().merge({{}, {QByteArray::fromHex(note.revision.toLatin1())}}));
        QVERIFY(recorded(known()).operations.isEmpty());
        QCOMPARE(recorded(known()).superseded.size(), 1);
    }

    void eachPlaceLacksSomethingElse() {
        const KnownTransactions other = known(QStringLiteral("other"));
        beginRecording(known());
        QVERIFY(database()->log().merge(superseding('a', 'a')));
        beginRecording(other);
        QVERIFY(database()->log().merge(superseding('b', 'b')));
        QCOMPARE(recorded(known()).superseded.size(), 2);
        QCOMPARE(recorded(other).superseded.size(), 1);
        QVERIFY(!known(QStringLiteral("third")).hasUnwritten().value());
        forgetStore(std::chrono::hours(1));
        QCOMPARE(KnownTransactions::recordedStores(profile(), database()->log().database()).value(),
                 QStringList{QStringLiteral("other")});
        QVERIFY(!known().hasUnwritten().value());
        QCOMPARE(recorded(other).superseded.size(), 1);
    }

    /// A record may have very many identifiers.
    void recordsAreForgottenInSteps() {
        constexpr int parts = 5;
        for (const KnownTransactions &each : {known(), known(QStringLiteral("other"))}) {
            for (int i = 0; i < parts; ++i) {
                QVERIFY(each.addPart(FirstRecord, i, Contents::of(manyIdentifiers(100), 0)));
            }
            QVERIFY(each.addLastPart(FirstRecord, Contents::of({}, RecordSize)));
            QVERIFY(each.add(SecondRecord, superseding('a', 'b'), RecordSize));
        }
        const QDeadlineTimer expired(0);
        QCOMPARE(known().removeReplacedUntil(expired, {FirstRecord, SecondRecord}).value(), 1);
        QCOMPARE(known().sizes().value().keys(), QList<QString>{SecondRecord});
        const KnownTransactions other = known(QStringLiteral("other"));
        QVERIFY(other.removeReplaced({FirstRecord, SecondRecord}));
        QVERIFY(other.sizes().value().isEmpty());

        QVERIFY(known().add(FirstRecord, manyIdentifiers(100), RecordSize));
        QVERIFY(other.add(FirstRecord, superseding('a', 'b'), RecordSize));
        QCOMPARE(forgetStore(std::chrono::milliseconds(0)), 2);
        QVERIFY(known().sizes().value().isEmpty());
        QCOMPARE(other.sizes().value().keys(), QList<QString>{FirstRecord});
    }

    void whatAStoreMayHaveLostMustBeCompared() {
        const KnownTransactions other = known(QStringLiteral("other"));
        for (const KnownTransactions &each : {known(), other}) {
            QVERIFY(each.add(FirstRecord, superseding('a', 'a'), RecordSize));
            QVERIFY(each.add(SecondRecord, superseding('a', 'a'), RecordSize));
            beginRecording(each);
            QVERIFY(!each.isComplete().value());
            QVERIFY(each.setComplete());
        }
        QVERIFY(known().remove({}));
        QVERIFY(known().removeReplaced({SecondRecord}));
        QVERIFY(known().add(FirstRecord, superseding('a', 'a'), RecordSize));
        QVERIFY(known().isComplete().value());
        QVERIFY(known().remove({FirstRecord}));
        QVERIFY(!known().isComplete().value());
        QVERIFY(other.isComplete().value());
        // As if the record had been changed at the location.
        QVERIFY(other.add(FirstRecord, superseding('b', 'b'), RecordSize));
        QVERIFY(!other.isComplete().value());
    }

    void theRecordIsForgottenInSteps() {
        beginRecording(known());
        QVERIFY(known().setComplete());
        QVERIFY(profile().write([&] { return database()->log().merge(manyIdentifiers(5000)); }));
        QCOMPARE(known().restartRecording().value(), false);
        QVERIFY(!known().isComplete().value());
        QVERIFY(known().hasUnwritten().value());
        beginRecording(known());
        QVERIFY(!known().hasUnwritten().value());
        QCOMPARE(known().compare().value().superseded.size(), 5000);
    }

    void aRecordThatLacksSomethingIsNotSound_data() {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<bool>("isFound");
        QTest::addRow("operation")
            << QStringLiteral("DELETE FROM unwritten WHERE NOT is_superseded") << true;
        QTest::addRow("superseded")
            << QStringLiteral("DELETE FROM unwritten WHERE is_superseded") << true;
        QTest::addRow("changed") << QStringLiteral("UPDATE unwritten SET digest = zeroblob(16)")
                                 << false;
        QTest::addRow("without an operation")
            << QStringLiteral(
                   "INSERT INTO unwritten SELECT place, database, 0, zeroblob(16)"
                   " FROM compared_places")
            << false;
        QTest::addRow("not superseded")
            << QStringLiteral(
                   "INSERT INTO unwritten SELECT place, database, 1, zeroblob(16)"
                   " FROM compared_places")
            << false;
    }
    void aRecordThatLacksSomethingIsNotSound() {
        QFETCH(QString, statement);
        QFETCH(bool, isFound);
        beginComplete();
        QVERIFY(known().isRecordSound().value());
        QVERIFY(profile().run(statement));
        QVERIFY(!known().isRecordSound().value());
        QCOMPARE(known().unwritten().value().has_value(), isFound);
        const qint64 id = database()->log().database();
        const auto faults = DerivedTables::check(profile(), id).value();
        QCOMPARE(faults.stores, QStringList{QStringLiteral("store")});
        QVERIFY(profile().write([&] { return DerivedTables::repair(profile(), id, faults); }));
        QVERIFY(DerivedTables::check(profile(), id).value().isEmpty());
        QVERIFY(!known().isComplete().value());
        QCOMPARE(known().compare().value().operations.size(), 1);
    }

    /// Then everything is sent, which is what an incomplete record means anyway.
    void aPlaceThatIsNotComparedNeedsNoRecord() {
        beginComplete();
        QVERIFY(profile().run(QStringLiteral("DELETE FROM unwritten")));
        QVERIFY(profile().run(QStringLiteral("DELETE FROM compared_places")));
        QVERIFY(known().isRecordSound().value());
        QVERIFY(!known().isComplete().value());
        QVERIFY(UnsentChanges::exist(database()->log(), known()).value());
    }

    void conflictsAreCounted() {
        const NoteLog &log = database()->log();
        const auto edit = [](const QString &text) {
            return Operation::make(QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a11"), {}, text,
                                   0, {});
        };
        const QList<Operation> edits{edit(QStringLiteral("1")), edit(QStringLiteral("2")),
                                     edit(QStringLiteral("3"))};
        const auto verify = [&](qint64 conflicts) {
            QCOMPARE(database()->countOfConflicts().value(), conflicts);
            QVERIFY(DerivedTables::isCountOfConflictsSound(profile(), log.database()).value());
        };
        for (const Operation &each : edits) {
            QVERIFY(log.merge({{each}, {}}));
            verify(each.id == edits.first().id ? 0 : 1);
        }
        QVERIFY(log.merge({{edits.first()}, {}}));
        verify(1);
        const auto setNote = [&](const OperationId &edit, const QString &note) {
            QVERIFY(profile().run(
                QStringLiteral("UPDATE operations SET note_uuid = ? WHERE digest = ?"),
                {note, edit}));
        };
        for (const Operation &each : edits) {
            setNote(each.id, QString::fromLatin1(each.id.toHex()));
        }
        verify(0);
        for (const Operation &each : edits) {
            setNote(each.id, each.note);
        }
        verify(1);
        QVERIFY(log.merge({{}, {edits[0].id}}));
        verify(1);
        QVERIFY(log.merge({{}, {edits[1].id}}));
        verify(0);
        QVERIFY(log.merge({{}, {edits[2].id}}));
        verify(0);
        QVERIFY(log.setName(QStringLiteral("Name")));
        verify(0);
    }

    void aWrongNumberOfConflictsIsFoundAndCorrected_data() {
        QTest::addColumn<QString>("statement");
        QTest::addRow("wrong") << QStringLiteral("UPDATE counts SET conflicts = 5");
        QTest::addRow("of another type") << QStringLiteral("UPDATE counts SET conflicts = 'x'");
        QTest::addRow("lost") << QStringLiteral("DELETE FROM counts");
    }
    void aWrongNumberOfConflictsIsFoundAndCorrected() {
        QFETCH(QString, statement);
        const qint64 id = database()->log().database();
        QVERIFY(DerivedTables::check(profile(), id).value().isEmpty());
        QVERIFY(profile().run(statement));
        const auto faults = DerivedTables::check(profile(), id).value();
        QVERIFY(faults.isCountWrong);
        QVERIFY(profile().write([&] { return DerivedTables::repair(profile(), id, faults); }));
        QVERIFY(DerivedTables::check(profile(), id).value().isEmpty());
        QCOMPARE(database()->countOfConflicts().value(), 0);
    }

    /// What decides whether a removal is large never rests on a recorded number.
    void notesAreCountedThemselves() {
        const NoteLog &log = database()->log();
        const qint64 before = log.countOfNotes().value();
        QVERIFY(!log.hasMoreNotesThan(before).value());
        Note note{.title = QStringLiteral("Title")};
        QVERIFY(database()->saveNote(note));
        QVERIFY(profile().run(QStringLiteral("DELETE FROM counts")));
        m_host->leaveUnverified("the number of conflicts is missing");
        QCOMPARE(log.countOfNotes().value(), before + 1);
        QVERIFY(log.hasMoreNotesThan(before).value());
        QVERIFY(!log.hasMoreNotesThan(before + 1).value());
    }
};

VELMORA_TEST(KnownTransactionsTest)
#include "KnownTransactionsTest.moc"
