#include <ctime>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/Transaction.h"
#include "Support/Failure.h"
#include "Support/TestMain.h"

namespace {

const QString NoteUUID = QStringLiteral("0f7e2f2c-9d1b-4a53-9c6e-0d9f6f3f8a11");

Operation sample() {
    return Operation::make(NoteUUID, QStringLiteral("Zoë’s"), QStringLiteral("Line\n\"𝄞\"\\"),
                           1700000000000, {QByteArray(16, '\2'), QByteArray(16, '\1')});
}

Transaction decoded(const QByteArray &record) {
    return Transaction::decoded(record, QStringLiteral("NAME")).value();
}

}  // namespace

class TransactionTest : public QObject {
    Q_OBJECT
private:
    /// The record of `operation`, with "id" as it then has to be.
    static QByteArray record(Operation operation) {
        operation.id = operation.computedId();
        return Transaction{{operation}, {}}.encoded();
    }

private Q_SLOTS:
    void comesBackAsItWas() {
        Operation bare = Operation::make({}, QStringLiteral("Name"), {}, {}, {});
        const Transaction transaction{{sample(), bare}, {QByteArray(16, '\xff')}};
        const Transaction again = decoded(transaction.encoded());
        QCOMPARE(again.operations, transaction.operations);
        QCOMPARE(again.superseded, transaction.superseded);
        QCOMPARE(again.allSuperseded().size(), 3);
    }

    void identifiersAreComputedAsTheFormatDefines() {
        const Operation operation{{},
                                  NoteUUID,
                                  QStringLiteral("Tä"),
                                  QStringLiteral("x\ny"),
                                  -5,
                                  {QByteArray(16, '\1'), QByteArray(16, '\2')},
                                  QByteArray(16, '\xab')};
        const QByteArray bytes = NoteUUID.toLatin1() + '\n' + QByteArray(16, '\xab').toHex() +
                                 "\n-5\n" + QByteArray(16, '\1').toHex() + ',' +
                                 QByteArray(16, '\2').toHex() + "\n3\nT\xc3\xa4x\ny";
        QCOMPARE(operation.computedId(),
                 QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).first(16));
    }

    void doingTheSameTwiceIsTwoOperations() {
        const auto make = [] { return Operation::make(NoteUUID, {}, {}, {}, {}); };
        QVERIFY(make().id != make().id);
    }

    void missingItemsAreEmpty() {
        QVERIFY(decoded("{\"version\":1}").isEmpty());
        QVERIFY(decoded("{\"version\":1,\"added later\":[[]]}").isEmpty());
    }

    void aNewerVersionIsNotDamaged() {
        for (const char *text : {"{\"version\":2}", "{\"version\":9007199254740993}"}) {
            const auto result = Transaction::decoded(text, QStringLiteral("NAME"));
            QCOMPARE(code(result), EngineErrorCode::UnknownVersion);
            QVERIFY(description(result).contains(QStringLiteral("“NAME”")));
        }
    }

    void isRefusedCompletelyIfAnyFieldIsInvalid_data() {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no JSON") << QByteArray("{\"version\":1");
        QTest::newRow("an array") << QByteArray("[]");
        QTest::newRow("deep") << "{\"version\":1,\"x\":" + QByteArray(50000, '[') +
                                     QByteArray(50000, ']') + '}';
        QTest::newRow("no version") << QByteArray("{}");
        QTest::newRow("version 0") << QByteArray("{\"version\":0}");
        QTest::newRow("a text as version") << QByteArray("{\"version\":\"1\"}");
        QTest::newRow("operations no list") << QByteArray("{\"version\":1,\"operations\":{}}");
        QTest::newRow("an operation no object") << QByteArray("{\"version\":1,\"operations\":[1]}");
        QTest::newRow("identifier too short")
            << QByteArray("{\"version\":1,\"superseded\":[\"00\"]}");
        QTest::newRow("identifier in capitals")
            << "{\"version\":1,\"superseded\":[\"" + QByteArray(32, 'A') + "\"]}";
        QTest::newRow("identifier not hexadecimal")
            << "{\"version\":1,\"superseded\":[\"" + QByteArray(32, 'x') + "\"]}";
        QTest::newRow("identifier a number") << QByteArray("{\"version\":1,\"superseded\":[1]}");
        const QByteArray good = record(sample());
        QTest::newRow("another text") << QByteArray(good).replace("Line", "Lime");
        QTest::newRow("a null title") << QByteArray(good).replace("\"Zoë’s\"", "null");
        QTest::newRow("a text as date")
            << QByteArray(good).replace("1700000000000", "\"1700000000000\"");
        QTest::newRow("half a millisecond")
            << QByteArray(good).replace("1700000000000", "1700000000000.5");
        Operation operation = sample();
        operation.note = QStringLiteral("../../profile");
        QTest::newRow("a path as note") << record(operation);
        operation.note = NoteUUID.toUpper();
        QTest::newRow("a note in capitals") << record(operation);
        operation = sample();
        operation.modified = 253402300800000;
        QTest::newRow("the year 10000") << record(operation);
        operation.modified = std::numeric_limits<qint64>::min();
        QTest::newRow("before the year 1") << record(operation);
        operation = sample();
        std::reverse(operation.supersedes.begin(), operation.supersedes.end());
        QTest::newRow("supersedes in disorder") << record(operation);
        operation.supersedes = {QByteArray(16, '\1'), QByteArray(16, '\1')};
        QTest::newRow("supersedes twice") << record(operation);
        operation.supersedes.clear();
        for (int i = 0; i <= Operation::SupersedesLimit; ++i) {
            operation.supersedes.append(QByteArray(12, '\0') +
                                        QByteArray::number(i + 1000000).right(4).rightJustified(4));
        }
        std::sort(operation.supersedes.begin(), operation.supersedes.end());
        QTest::newRow("supersedes too many") << record(operation);
        operation = sample();
        operation.text = QString(Operation::NoteLimit, u'x');
        QTest::newRow("too long a note") << record(operation);
        operation = sample();
        operation.note.clear();
        operation.text.clear();
        operation.title = QStringLiteral(" ");
        QTest::newRow("a blank name") << record(operation);
        operation.title = QString(Operation::NameLimit + 1, u'x');
        QTest::newRow("too long a name") << record(operation);
        QTest::newRow("half a character")
            << "{\"version\":1,\"operations\":[" +
                   QByteArray(good).replace("Line", "\\ud800").mid(good.indexOf('[') + 1);
    }
    void isRefusedCompletelyIfAnyFieldIsInvalid() {
        QFETCH(QByteArray, contents);
        const auto result = Transaction::decoded(contents, QStringLiteral("NAME"));
        QCOMPARE(code(result), EngineErrorCode::DamagedRecord);
        QVERIFY(description(result).contains(QStringLiteral("“NAME”")));
    }

    void aRecordThatTakesTooMuchMemoryIsRefused_data() {
        QTest::addColumn<QByteArray>("start");
        QTest::addColumn<QByteArray>("item");
        const QByteArray operations = "{\"version\":1,\"operations\":[";
        QTest::newRow("lists") << operations << QByteArray("[0],");
        QTest::newRow("objects") << operations << QByteArray("{},");
        QTest::newRow("numbers") << operations << QByteArray("0,");
        QTest::newRow("texts") << operations << QByteArray("\"\",");
        QTest::newRow("identifiers")
            << QByteArray("{\"version\":1,\"superseded\":[") << '"' + QByteArray(32, 'a') + "\",";
        QTest::newRow("blanks") << operations << QByteArray(1000, ' ');
        QTest::newRow("a text that is longer than a note")
            << "{\"version\":1,\"x\":[\"" + QByteArray(Operation::NoteLimit, 'x')
            << QByteArray(1000, 'x');
    }
    void aRecordThatTakesTooMuchMemoryIsRefused() {
        QFETCH(QByteArray, start);
        QFETCH(QByteArray, item);
        const auto cost = Transaction::cost(start + item + item) - Transaction::cost(start + item);
        const QByteArray record = start + item.repeated(Transaction::CostLimit / cost + 1);
        QVERIFY(record.size() < Transaction::SizeLimit);
        const auto result = Transaction::decoded(record, QStringLiteral("NAME"));
        QCOMPARE(code(result), EngineErrorCode::BlobRefused);
        QVERIFY(description(result).contains(QStringLiteral("“NAME” is too large")));
    }

    void theCostIsCountedUpToTheLimit() {
        // All of it would cost much more.
        const QByteArray record(Transaction::SizeLimit, '[');
        QVERIFY(Transaction::cost(record) > Transaction::CostLimit);
        QVERIFY(Transaction::cost(record) < 2 * Transaction::CostLimit);
    }

    void escapesCountAsOneCharacterEach_data() {
        QTest::addColumn<QByteArray>("character");
        QTest::newRow("quotation mark") << QByteArray("\\\"");
        QTest::newRow("backslash") << QByteArray("\\\\");
        QTest::newRow("line end") << QByteArray("\\n");
        QTest::newRow("number") << QByteArray("\\u0022");
        QTest::newRow("quotation mark after others") << QByteArray("xxx\\\"");
    }
    void escapesCountAsOneCharacterEach() {
        QFETCH(const QByteArray, character);
        const auto cost = [](const QByteArray &text, qsizetype count) {
            return Transaction::cost("[\"" + text.repeated(count) + "\",[]]");
        };
        constexpr qsizetype count = Operation::NoteLimit + 1000;
        const bool isOne = !character.startsWith('x');
        QCOMPARE(cost(character, isOne ? count : count / 4), cost("x", count));
    }

    /// It is found before a record is parsed, and is not cancellable.
    void theCostOfTheLongestTextsIsFoundSoon_data() {
        QTest::addColumn<QByteArray>("piece");
        QTest::newRow("plain") << QByteArray("x");
        QTest::newRow("escapes") << QByteArray("\\n");
        QTest::newRow("numbers") << QByteArray("\\u0001");
    }
    void theCostOfTheLongestTextsIsFoundSoon() {
        QFETCH(const QByteArray, piece);
        const QByteArray record = '"' + piece.repeated((Transaction::SizeLimit - 1) / piece.size());
        const std::clock_t before = std::clock();
        QVERIFY(Transaction::cost(record) > Transaction::CostLimit || piece.size() > 2);
        QCOMPARE_LT(std::clock() - before, 4 * CLOCKS_PER_SEC);
        // What is longer is refused by its size.
        QCOMPARE(code(Transaction::decoded(record + piece, QStringLiteral("NAME"))),
                 EngineErrorCode::BlobRefused);
    }

    void theLongestNoteFitsARecord() {
        const Operation operation =
            Operation::make(NoteUUID, {}, QString(Operation::NoteLimit, QChar(1)), {}, {});
        const QByteArray contents = Transaction{{operation}, {}}.encoded();
        QVERIFY(contents.size() < Transaction::SizeLimit - 8 * Transaction::UsualSize);
        QVERIFY(Transaction::cost(contents) < Transaction::CostLimit / 4);
        QCOMPARE(decoded(contents).operations.size(), 1);
    }

    /// A writer takes this operation for more than 270 bytes, and writes at most 30,000
    /// identifiers that no operation supersedes.
    void twiceWhatAWriterWritesIsWithinTheLimit() {
        Transaction transaction;
        transaction.operations.fill(sample(), Transaction::UsualSize / 270);
        transaction.superseded.fill(OperationId(Operation::IdentifierSize, 'x'), 30'000);
        QVERIFY(2 * Transaction::cost(transaction.encoded()) < Transaction::CostLimit);
    }

    void theLaterOneComesFirstAndThenTheGreaterIdentifier() {
        Operation older = sample();
        Operation newer = sample();
        newer.modified = *older.modified + 1;
        Operation undated = sample();
        undated.modified.reset();
        QVERIFY(newer.comesBefore(older) && !older.comesBefore(newer));
        QVERIFY(older.comesBefore(undated) && !undated.comesBefore(older));
        older.id = QByteArray(16, '\x7f');
        newer = older;
        newer.id = QByteArray(16, '\x80');
        QVERIFY(newer.comesBefore(older) && !older.comesBefore(newer));
    }
};

VELMORA_TEST(TransactionTest)
#include "TransactionTest.moc"
