#include "Engine/DirectConnection/DirectConnectionMessage.h"

#include <QtCore/QCborArray>
#include <QtCore/QtEndian>

#include "Support/PeakMemory.h"
#include "Support/TestMain.h"

namespace {

/// Megabytes by which decoding may increase the memory. Generous for a sanitized build.
constexpr qint64 LargestIncrease = 40;
/// Of 120 characters.
const QByteArray EncodedName = "\x78\x78" + QByteArray(120, 'x');

/// A map with one key of `size` bytes, not all of which are ASCII.
QByteArray mapWithKey(qsizetype size) {
    QByteArray length(4, '\0');
    qToBigEndian(static_cast<quint32>(size), length.data());
    return "\xa1\x7a" + length + "\u00e9" + QByteArray(size - 2, 'x') + '\x01';
}

/// A map with one list.
QByteArray mapWithItems(const QByteArray &item, qsizetype count) {
    return "\xa1\x65names\x9f" + item.repeated(count) + '\xff';
}

}  // namespace

/// What a paired computer sends costs little more than its bytes.
class DirectConnectionMessageTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void hugeMessagesAreRefusedBeforeAnythingIsMadeOfThem_data() {
        using namespace DirectConnectionMessage;
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("key") << mapWithKey(20 << 20);
        QTest::newRow("key of 65 bytes") << mapWithKey(LongestKey + 1);
        QTest::newRow("300,000 names") << mapWithItems(EncodedName, 300'000);
        QTest::newRow("empty lists") << mapWithItems("\x80", 200'000);
        QTest::newRow("lists of unknown length") << mapWithItems("\x9f\xff", 200'000);
        QTest::newRow("numbers") << mapWithItems("\x01", 2'000'000);
        QTest::newRow("text") << QCborMap{{Name, QString(30 << 20, u'x')}}.toCborValue().toCbor();
        QTest::newRow("bytes")
            << QCborMap{{Secret, QByteArray(30 << 20, 'x')}}.toCborValue().toCbor();
    }
    void hugeMessagesAreRefusedBeforeAnythingIsMadeOfThem() {
        using namespace DirectConnectionMessage;
        QFETCH(const QByteArray, body);
        const PeakMemory memory;
        const Expected<Received> message = decode(body, ResponseMemory);
        QCOMPARE_LE(memory.growth(), LargestIncrease);
        QVERIFY(!message);
        QCOMPARE(message.error(), tooLarge());
    }

    void whatIsWrongWithAMessageIsReported_data() {
        using namespace DirectConnectionMessage;
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<Error>("error");
        QTest::newRow("nothing") << QByteArray() << notValid();
        QTest::newRow("a number") << QByteArray("\x01") << notValid();
        QTest::newRow("a list") << QByteArray("\x80") << notValid();
        QTest::newRow("a truncated map") << QByteArray("\xa1\x61x") << notValid();
        QTest::newRow("more than a map") << QByteArray("\xa0\x01") << notValid();
        QTest::newRow("a number as key") << QByteArray("\xa1\x01\x01") << notValid();
        QTest::newRow("a key that is not UTF-8") << QByteArray("\xa1\x61\xff\x01") << notValid();
        QTest::newRow("a key of unknown length")
            << QByteArray("\xa1\x7f\x61x\xff\x01") << notValid();
        QTest::newRow("a text that is not UTF-8") << QByteArray("\xa1\x61x\x61\xff") << notValid();
        QTest::newRow("a tag") << QByteArray("\xa1\x61x\xc1\x01") << notValid();
        QTest::newRow("a text in a list that ends early")
            << QByteArray("\xa1\x61x\x81\x62y") << notValid();
        QTest::newRow("nested") << QByteArray("\xa1\x61x" + QByteArray(DeepestNesting, '\x81') +
                                              "\x01")
                                << tooLarge();
        QByteArray members("\xbf");
        for (int number = 0; number <= MostMembers; ++number) {
            members += "\x62" + QByteArray::number(number).rightJustified(2, '0') + "\x01";
        }
        QTest::newRow("members") << members + '\xff' << tooLarge();
    }
    void whatIsWrongWithAMessageIsReported() {
        QFETCH(const QByteArray, body);
        QFETCH(const Error, error);
        const auto message =
            DirectConnectionMessage::decode(body, DirectConnectionMessage::ResponseMemory);
        QVERIFY(!message);
        QCOMPARE(message.error(), error);
    }

    void theLongestListOfRecordsIsRead() {
        using namespace DirectConnectionMessage;
        const QByteArray name(41, 'n');
        const QByteArray body = mapWithItems("\x78\x29" + name, 200'000);
        const auto message = decode(body, ResponseMemory);
        QVERIFY(message);
        QCOMPARE(message->values[Names].toArray().size(), 200'000);
        QCOMPARE(message->values[Names].toArray().last().toString(), QString::fromLatin1(name));
    }

    void contentsOfAnySizeAreReadWithoutACopy() {
        using namespace DirectConnectionMessage;
        QCborMap values = ofType(Write);
        const QByteArray before = encodeBeforeContents(values, ContentsLimit).mid(LengthSize);
        QByteArray body;
        body.reserve(before.size() + ContentsLimit);
        body += before;
        body.resize(before.size() + ContentsLimit, 'x');
        const PeakMemory memory;
        const auto message = decode(std::move(body), RequestMemory);
        QCOMPARE_LE(memory.growth(), LargestIncrease);
        QVERIFY(message);
        QCOMPARE(message->values, values);
        QCOMPARE(message->contents.value_or(QByteArray()).size(), ContentsLimit);
    }

    void aRequestMayCostLessThanAResponse() {
        using namespace DirectConnectionMessage;
        const QByteArray body = mapWithItems(EncodedName, 1000);
        QVERIFY(decode(body, ResponseMemory));
        QVERIFY(!decode(body, RequestMemory));
    }
};

VELMORA_TEST(DirectConnectionMessageTest)
#include "DirectConnectionMessageTest.moc"
