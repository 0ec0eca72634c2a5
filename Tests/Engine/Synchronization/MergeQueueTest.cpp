#include "Engine/Synchronization/MergeQueue.h"
#include "Support/TestMain.h"

class MergeQueueTest : public QObject {
    Q_OBJECT
private:
    static constexpr qint64 RecordSize = 1000;

    static OperationId identifier(int number) {
        return QByteArray::number(number).rightJustified(Operation::IdentifierSize, '0');
    }
    static Operation edit(const QList<OperationId> &supersedes) {
        return Operation::make(QStringLiteral("11111111-1111-4111-8111-111111111111"),
                               QStringLiteral("Title"), QStringLiteral("Text"), 0, supersedes);
    }
    /// Returns all parts of `transaction` that are taken with room for `rows` rows each.
    static QList<MergeQueue::Part> partsOf(const Transaction &transaction, qsizetype rows,
                                           qint64 sizeOfSuperseded) {
        MergeQueue queue;
        queue.append(MergeQueue::entryOf(QStringLiteral("record"), {transaction, RecordSize}));
        QList<MergeQueue::Part> parts;
        while (!queue.isEmpty()) {
            parts.append(
                queue.takeParts(rows, [&](const OperationId &) { return sizeOfSuperseded; })
                    .value());
        }
        return parts;
    }

private Q_SLOTS:
    void anEditIsTakenTogetherWithTheOneThatItReplaces_data() {
        QTest::addColumn<qsizetype>("rows");
        for (const qsizetype rows : {11, 12, 13, 20, 1000}) {
            QTest::addRow("%d rows", int(rows)) << rows;
        }
    }
    void anEditIsTakenTogetherWithTheOneThatItReplaces() {
        QFETCH(qsizetype, rows);
        constexpr int edits = 50;
        Transaction transaction;
        for (int i = 0; i < edits; ++i) {
            transaction.operations.append(edit({identifier(i)}));
        }
        qsizetype operations = 0;
        for (const MergeQueue::Part &part : partsOf(transaction, rows, 0)) {
            QList<OperationId> replaced;
            for (const Operation &operation : part.operations) {
                replaced.append(operation.supersedes);
            }
            QCOMPARE(part.contents.superseded, replaced);
            operations += part.operations.size();
        }
        QCOMPARE(operations, edits);
    }

    void whatIsSupersededIsDividedByItsSize() {
        constexpr int count = 10;
        constexpr qint64 large = 1 << 20;
        Transaction transaction;
        for (int i = 0; i < count; ++i) {
            transaction.superseded.append(identifier(i));
        }
        transaction.operations.append(edit(transaction.superseded));
        const QList<MergeQueue::Part> parts = partsOf(transaction, 200, large);
        QCOMPARE(parts.size(), 2 * count);
        for (qsizetype i = 0; i < parts.size(); ++i) {
            QCOMPARE(parts[i].number, i);
            QCOMPARE(parts[i].contents.superseded.size(), 1);
            QCOMPARE(parts[i].isLast, i == parts.size() - 1);
            QCOMPARE(parts[i].contents.size, parts[i].isLast ? RecordSize : 0);
        }
    }

    void aFailureIsReturned() {
        MergeQueue queue;
        queue.append(MergeQueue::entryOf(QStringLiteral("record"),
                                         {{{edit({identifier(1)})}, {}}, RecordSize}));
        const Error error{.localizedDescription = QStringLiteral("unreadable")};
        const auto fail = [&](const OperationId &) -> Expected<qint64> { return failure(error); };
        QCOMPARE(queue.takeParts(100, fail).error().localizedDescription,
                 error.localizedDescription);
    }
};

VELMORA_TEST(MergeQueueTest)
#include "MergeQueueTest.moc"
