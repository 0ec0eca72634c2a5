// Any record of a transaction is refused, or decodes to sound operations that encode to the same
// transaction again, and the memory for it is estimated. Mutations rarely hit a digest, so the
// record is decoded a second time with the identifiers that its operations should have.

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

#include "Engine/Notes/Transaction.h"
#include "Fuzz/FuzzInput.h"

using namespace FuzzInput;

namespace {

const QString Name = QStringLiteral("name");
/// A list is estimated at this many bytes, and begins with one.
constexpr qint64 LargestCostOfByte = 480;

QString text(const QJsonObject &object, const char *key) {
    return object.value(QLatin1StringView(key)).toString();
}

QJsonObject withComputedId(QJsonObject object) {
    Operation operation{
        {}, text(object, "note"), text(object, "title"), text(object, "text"), {}, {}, {}};
    if (object.contains(QStringLiteral("modified"))) {
        operation.modified = object.value(QStringLiteral("modified")).toInteger();
    }
    const QJsonArray supersedes = object.value(QStringLiteral("supersedes")).toArray();
    for (const QJsonValue each : supersedes) {
        operation.supersedes.append(QByteArray::fromHex(each.toString().toLatin1()));
    }
    operation.salt = QByteArray::fromHex(text(object, "salt").toLatin1());
    object.insert(QStringLiteral("id"), QString::fromLatin1(operation.computedId().toHex()));
    return object;
}

QByteArray withComputedIds(const QByteArray &record) {
    QJsonObject object = QJsonDocument::fromJson(record).object();
    QJsonArray operations = object.value(QStringLiteral("operations")).toArray();
    for (QJsonValueRef operation : operations) {
        operation = withComputedId(operation.toObject());
    }
    object.insert(QStringLiteral("operations"), operations);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

void check(const QByteArray &record) {
    const qint64 cost = Transaction::cost(record);
    require(cost >= 0 && cost <= LargestCostOfByte * record.size(), "the cost is linear");
    const Expected<Transaction> transaction = Transaction::decoded(record, Name);
    if (!transaction) {
        require(!transaction.error().localizedDescription.isEmpty(), "a refusal has a message");
        return;
    }
    require(std::all_of(transaction->operations.begin(), transaction->operations.end(),
                        [](const Operation &operation) { return operation.isSound(); }),
            "operations are sound");
    const qsizetype identifiers =
        2 * transaction->operations.size() + transaction->allSuperseded().size();
    constexpr qint64 costOfIdentifier = 64;
    require(identifiers * costOfIdentifier <= cost, "the cost includes that of identifiers");
    const Expected<Transaction> again = Transaction::decoded(transaction->encoded(), Name);
    require(again && again->operations == transaction->operations &&
                again->superseded == transaction->superseded,
            "encoding undoes decoding");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const QByteArray record = expanded(bytes(data, size));
    check(record);
    check(withComputedIds(record));
    return 0;
}
