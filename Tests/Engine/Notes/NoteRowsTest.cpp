#include <QtCore/QUuid>
#include <ctime>
#include <limits>

#include "Engine/Notes/NoteRows.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

constexpr qint64 FirstPosition = std::numeric_limits<qint64>::min();

double secondsOfThread() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

QString newUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

}  // namespace

/// Reading the list of notes takes time in proportion to what is read, whatever a store contains.
class NoteRowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;
    std::shared_ptr<EngineDatabase> m_database;
    Note m_note;
    qint64 m_position = 0;

    void receive(const Transaction &transaction) {
        const Merge merge{.operations = transaction.operations,
                          .superseded = transaction.allSuperseded()};
        QVERIFY(m_host->library().merge(m_database, merge, [] { return Expected<void>(); }));
    }
    /// Receives edits of the note from other computers, titled "1" and so on, the last one first.
    void receiveEdits(int count) {
        Transaction transaction;
        for (int i = 1; i <= count; ++i) {
            transaction.operations.append(
                Operation::make(m_note.UUID, QString::number(i), {}, 1000 + i, {}));
        }
        receive(transaction);
    }
    QList<NoteRow> rowsAt() const { return m_database->rowsAt(m_position).value(); }
    static QStringList revisions(const QList<NoteRow> &rows) {
        QStringList revisions;
        for (const NoteRow &row : rows) {
            revisions.append(row.note.revision);
        }
        return revisions;
    }
    static QSet<QString> UUIDs(const QList<NoteRow> &rows) {
        QSet<QString> UUIDs;
        for (const NoteRow &row : rows) {
            UUIDs.insert(row.note.UUID);
        }
        return UUIDs;
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_host->leaveUnverified("the notes are in no store");
        const auto made = m_host->addDatabase(QStringLiteral("Plans"));
        m_database = m_host->library().synchronizedDatabase(made->UUID());
        m_note = {{}, QStringLiteral("Own"), QStringLiteral("Text"), {}};
        QVERIFY(m_database->saveNote(m_note));
        // It has left this computer.
        receive({});
        m_position = m_database->rows(FirstPosition, 1).value().last().position;
    }
    void cleanup() {
        m_database.reset();
        m_host.reset();
    }

    void onlySomeOfManyEditsAreRead() {
        constexpr int edits = 20'000;
        receiveEdits(edits);
        Note own = m_note;
        own.text = QStringLiteral("Changed");
        QVERIFY(m_database->saveNote(own));
        receiveEdits(10);
        const double before = secondsOfThread();
        for (int i = 0; i < 50; ++i) {
            QVERIFY(rowsAt().size() <= NoteRows::MostRows + 1);
        }
        // Reading all edits once takes a second.
        QVERIFY(secondsOfThread() - before < 20);
        const QList<NoteRow> rows = rowsAt();
        QVERIFY(rows.size() >= NoteRows::MostRows / 2);
        QCOMPARE(rows.first().note.UUID, m_note.UUID);
        QCOMPARE(rows.first().note.title, QString::number(edits));
        QVERIFY(revisions(rows).contains(own.revision));
        QVERIFY(m_database->hasMoreEdits(m_note.UUID, rows.size()).value());
        QVERIFY(!m_database->hasMoreEdits(m_note.UUID, edits + 11).value());
        QCOMPARE(m_database->rows(m_position, 500).value(), rows);
        QCOMPARE(m_database->notes().value().size(), edits + 11);
    }

    void theOtherEditsFollowAsConflictsAreResolved() {
        constexpr int edits = 250;
        receiveEdits(edits);
        QSet<QString> titles;
        QList<NoteRow> rows = rowsAt();
        for (; rows.size() > 1; rows = rowsAt()) {
            Note kept = rows.first().note;
            for (const NoteRow &row : std::as_const(rows)) {
                QCOMPARE(row.note.conflict, m_note.UUID);
                titles.insert(row.note.title.section(u' ', 0, 0));
            }
            QVERIFY(m_database->resolveConflict(kept, rows.last().note));
        }
        QCOMPARE(titles.size(), edits + 1);
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.first().note.title, QString::number(edits));
        QVERIFY(rows.first().note.conflict.isEmpty());
        QVERIFY(!m_database->hasMoreEdits(m_note.UUID, 1).value());
    }

    void noNoteIsHiddenBehindManyEditsOfAnother() {
        receiveEdits(2);
        Note copy = rowsAt().last().note;
        QVERIFY(!copy.conflict.isEmpty() && copy.UUID != m_note.UUID);
        QVERIFY(m_database->saveNote(copy));
        receiveEdits(1000);
        copy.text = QStringLiteral("Changed");
        QVERIFY(m_database->saveNote(copy));
        receiveEdits(2000);
        const QList<NoteRow> rows = rowsAt();
        QVERIFY(rows.size() <= NoteRows::MostRows + 2);
        QVERIFY(revisions(rows).contains(copy.revision));
        QVERIFY(UUIDs(rows).contains(m_note.UUID));
    }

    /// A store knows the UUID of the copy, and all that would follow from it.
    void aCopyWhoseUUIDIsTakenShowsNevertheless() {
        constexpr int notes = 20'000;
        receiveEdits(2);
        const Note before = rowsAt()[1].note;
        QVERIFY(before.UUID != m_note.UUID);
        Transaction taking;
        QString UUID = before.UUID;
        for (int i = 0; i < notes; ++i) {
            taking.operations.append(Operation::make(UUID, QStringLiteral("taken"), {}, 1, {}));
            UUID = QUuid::createUuidV5(QUuid(UUID), UUID).toString(QUuid::WithoutBraces);
        }
        receive(taking);
        const double begin = secondsOfThread();
        QList<NoteRow> rows;
        for (int i = 0; i < 50; ++i) {
            rows = rowsAt();
        }
        // Following the chain takes much longer.
        QVERIFY(secondsOfThread() - begin < 5);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(UUIDs(rows).size(), 3);
        Note copy = rows[1].note;
        QCOMPARE(copy.revision, before.revision);
        QCOMPARE(UUIDs(m_database->rows(FirstPosition, 2 * notes).value()).size(), notes + 3);
        QCOMPARE(m_database->notes().value().size(), notes + 3);

        copy.text = QStringLiteral("Changed");
        QVERIFY(m_database->saveNote(copy));
        QVERIFY(Operation::isUUID(copy.UUID) && copy.UUID != before.UUID);
        QCOMPARE(rowsAt().size(), 3);
        QVERIFY(rowsAt()[2].note.conflict.isEmpty());
        QCOMPARE(m_database->countOfNotes().value(), notes + 2);
    }

    void anEditIsFoundByTheUUIDOfItsCopy() {
        receiveEdits(2);
        const QList<NoteRow> rows = rowsAt();
        const Note copy = rows[1].note;
        receive({{Operation::make(copy.UUID, QStringLiteral("taken"), {}, 1, {})}, {}});
        const Note taken = rowsAt()[1].note;
        QCOMPARE(taken.revision, copy.revision);
        QVERIFY(m_database->removeNote({.UUID = taken.UUID}).value());
        QVERIFY(m_database->removeNote({.UUID = rows[2].note.UUID}).value());
        QVERIFY(!m_database->removeNote({.UUID = rows[2].note.UUID}).value());
        QCOMPARE(revisions(rowsAt()), QStringList{rows[0].note.revision});
        QVERIFY(m_database->removeNote({.UUID = copy.UUID}).value());
        QCOMPARE(m_database->earlierVersions(copy).value().size(), 3);
    }

    void manyNotesThatReplaceOneAreNotReadTogether() {
        constexpr int notes = 1000;
        Transaction transaction;
        QSet<QString> expected{m_note.UUID};
        for (int i = 0; i < notes; ++i) {
            expected.insert(newUUID());
        }
        for (const QString &UUID : std::as_const(expected)) {
            transaction.operations.append(
                Operation::make(UUID, QStringLiteral("n"), {}, 1,
                                {QByteArray::fromHex(m_note.revision.toLatin1())}));
        }
        receive(transaction);
        QVERIFY(rowsAt().size() <= NoteRows::MostRows);
        QCOMPARE(UUIDs(m_database->rows(FirstPosition, 2 * notes).value()), expected);
    }

    void pagesContainAllNotes() {
        receiveEdits(700);
        QSet<QString> expected{m_note.UUID};
        Transaction transaction;
        for (int i = 0; i < 300; ++i) {
            const QString UUID = newUUID();
            expected.insert(UUID);
            transaction.operations.append(Operation::make(UUID, QStringLiteral("n"), {}, 1, {}));
        }
        receive(transaction);
        for (const int count : {1, 7, 60, 500}) {
            QSet<QString> found;
            qint64 from = FirstPosition;
            for (;;) {
                const QList<NoteRow> rows = m_database->rows(from, count).value();
                found.unite(UUIDs(rows));
                if (rows.size() < count) {
                    break;
                }
                QVERIFY(rows.size() <= count + 2 * NoteRows::MostRows);
                from = rows.last().position + 1;
            }
            QVERIFY(found.contains(expected));
        }
    }
};

VELMORA_TEST(NoteRowsTest)
#include "NoteRowsTest.moc"
