#include "Engine/Notes/KnownTransactions.h"
#include "Host/InboxUUID.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

namespace {

const QString FirstRecord = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a11.json");
const QString SecondRecord = QStringLiteral("0f7e2f2c-9d1b-4a53-8c6e-0d9f6f3f8a12.json");
constexpr qint64 RecordSize = 1000;

/// A transaction with the superseded identifiers `from` to `to`.
Transaction superseding(char from, char to) {
    Transaction transaction;
    for (char each = from; each <= to; ++each) {
        transaction.superseded.append(QByteArray(Operation::IdentifierSize, each));
    }
    return transaction;
}

}  // namespace

class KnownTransactionsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestHost> m_host;

    KnownTransactions known(const QString &store = QStringLiteral("store")) const {
        return {m_host->engine().profile(), store,
                m_host->library().synchronizedDatabase(InboxUUID)->log().database()};
    }

private Q_SLOTS:
    void init() { m_host = std::make_unique<TestHost>(); }
    void cleanup() { m_host.reset(); }

    void theContentsOfARecordAreThoseOfAllParts() {
        QVERIFY(known().addPart(FirstRecord, 0, superseding('c', 'd')));
        QVERIFY(known().addPart(FirstRecord, 1, superseding('e', 'f')));
        QVERIFY(known().add(FirstRecord, superseding('a', 'b'), RecordSize));
        QVERIFY(known().add(SecondRecord, superseding('g', 'g'), RecordSize));
        const auto expected = KnownTransactions::Contents::of(superseding('a', 'f'), RecordSize);
        QCOMPARE(known().contents(FirstRecord).value(), expected);
        QCOMPARE(known().all().value().value(FirstRecord), expected);
        QCOMPARE(known().all().value().size(), 2);
        QCOMPARE(known().sizes().value(),
                 (QHash<QString, qint64>{{FirstRecord, RecordSize}, {SecondRecord, RecordSize}}));
    }

    void aRecordWithoutItsLastPartIsNotKnown() {
        QVERIFY(known().addPart(FirstRecord, 0, superseding('a', 'b')));
        QVERIFY(known().all().value().isEmpty());
        QVERIFY(known().sizes().value().isEmpty());
        QCOMPARE(known().contents(FirstRecord).value(), KnownTransactions::Contents());
    }

    void partsThatWereAddedBeforeAreReplaced() {
        for (int part = 0; part < 3; ++part) {
            QVERIFY(known().addPart(FirstRecord, part, superseding('x', 'z')));
        }
        QVERIFY(known().addPart(FirstRecord, 0, superseding('a', 'a')));
        QVERIFY(known().add(FirstRecord, superseding('b', 'b'), RecordSize));
        QCOMPARE(known().contents(FirstRecord).value(),
                 KnownTransactions::Contents::of(superseding('a', 'b'), RecordSize));
    }

    void removingARecordRemovesItsPartsOnly() {
        QVERIFY(known().addPart(FirstRecord, 0, superseding('a', 'a')));
        QVERIFY(known().add(FirstRecord, superseding('b', 'b'), RecordSize));
        QVERIFY(known().add(SecondRecord, superseding('c', 'c'), RecordSize));
        QVERIFY(known().remove({FirstRecord}));
        QCOMPARE(known().sizes().value(), (QHash<QString, qint64>{{SecondRecord, RecordSize}}));
        QVERIFY(known().add(FirstRecord, superseding('d', 'd'), RecordSize));
        QCOMPARE(known().contents(FirstRecord).value(),
                 KnownTransactions::Contents::of(superseding('d', 'd'), RecordSize));
    }

    void whatWasWrittenIsForgottenWithARecord() {
        QVERIFY(known().add(FirstRecord, superseding('a', 'a'), RecordSize));
        QVERIFY(known().setWritten(QStringLiteral("state")));
        QVERIFY(known(QStringLiteral("other")).setWritten(QStringLiteral("other state")));
        QVERIFY(known().remove({}));
        QCOMPARE(known().written().value(), QStringLiteral("state"));
        QVERIFY(known().remove({FirstRecord}));
        QCOMPARE(known().written().value(), QString());
        QCOMPARE(known(QStringLiteral("other")).written().value(), QStringLiteral("other state"));
    }

    void theStateOfADatabaseChangesWithEachOperation() {
        const auto inbox = m_host->library().synchronizedDatabase(InboxUUID);
        QSet<QString> states{inbox->log().state().value()};
        const auto changes = [&] {
            const qsizetype before = states.size();
            states.insert(inbox->log().state().value());
            return states.size() > before;
        };
        Note note{.title = QStringLiteral("Title")};
        QVERIFY(inbox->saveNote(note));
        QVERIFY(changes());
        note.text = QStringLiteral("Text");
        QVERIFY(inbox->saveNote(note));
        QVERIFY(changes());
        QVERIFY(inbox->log().markAllSent());
        QVERIFY(!changes());
        QVERIFY(inbox->removeNote(note));
        QVERIFY(changes());
        QVERIFY(inbox->log().merge(superseding('a', 'a')));
        QVERIFY(changes());
        QVERIFY(inbox->log().merge(superseding('a', 'a')));
        QVERIFY(!changes());
    }
};

VELMORA_TEST(KnownTransactionsTest)
#include "KnownTransactionsTest.moc"
