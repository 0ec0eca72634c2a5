#include "Engine/Notes/Transaction.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QUuid>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/JsonCost.h"
#include "Platform/Foundation/ExactText.h"

namespace {

const QString VersionKey = QStringLiteral("version");
const QString OperationsKey = QStringLiteral("operations");
const QString SupersededKey = QStringLiteral("superseded");
const QString IdentifierKey = QStringLiteral("id");
const QString NoteKey = QStringLiteral("note");
const QString TitleKey = QStringLiteral("title");
const QString TextKey = QStringLiteral("text");
const QString ModifiedKey = QStringLiteral("modified");
const QString SupersedesKey = QStringLiteral("supersedes");
const QString SaltKey = QStringLiteral("salt");

QString hexadecimal(const QByteArray &bytes) {
    return QString::fromLatin1(bytes.toHex());
}

QJsonArray hexadecimals(const QList<OperationId> &identifiers) {
    QJsonArray array;
    for (const OperationId &identifier : identifiers) {
        array.append(hexadecimal(identifier));
    }
    return array;
}

/// Returns `record`, followed by `text` as a JSON string. Converts it in pieces, because all of it
/// can take a hundred megabytes meanwhile: some characters need six bytes.
QByteArray appendingText(QByteArray record, const QString &text) {
    constexpr qsizetype usual = 1 << 16;
    const qsizetype start = QByteArrayView("{\"text\":\"").size();
    record += '"';
    for (qsizetype position = 0; position < text.size();) {
        const qsizetype last = qMin(position + usual, text.size()) - 1;
        const qsizetype size = last - position + (text[last].isHighSurrogate() ? 2 : 1);
        const QByteArray piece = ExactText::json({{TextKey, text.mid(position, size)}});
        record += QByteArrayView(piece).sliced(start).chopped(2);
        position += size;
    }
    record += '"';
    return record;
}

/// Returns the operation without its text.
QJsonObject encodedOperation(const Operation &operation) {
    QJsonObject object{{IdentifierKey, hexadecimal(operation.id)},
                       {TitleKey, operation.title},
                       {SaltKey, hexadecimal(operation.salt)}};
    if (!operation.note.isEmpty()) {
        object.insert(NoteKey, operation.note);
    }
    if (operation.modified) {
        object.insert(ModifiedKey, *operation.modified);
    }
    if (!operation.supersedes.isEmpty()) {
        object.insert(SupersedesKey, hexadecimals(operation.supersedes));
    }
    return object;
}

/// Thrown and caught within this file if a record violates the format.
struct Unsound {};

QByteArray sixteenBytes(const QJsonValue &value) {
    const QByteArray digits = value.toString().toLatin1();
    QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.size() != Operation::IdentifierSize || bytes.toHex() != digits) {
        throw Unsound();
    }
    return bytes;
}

QString string(const QJsonObject &object, const QString &key) {
    const QJsonValue value = object.value(key);
    if (!value.isString() && !value.isUndefined()) {
        throw Unsound();
    }
    return value.toString();
}

QJsonArray array(const QJsonObject &object, const QString &key) {
    const QJsonValue value = object.value(key);
    if (!value.isArray() && !value.isUndefined()) {
        throw Unsound();
    }
    return value.toArray();
}

QList<OperationId> identifiers(const QJsonObject &object, const QString &key) {
    const QJsonArray values = array(object, key);
    QList<OperationId> list;
    list.reserve(values.size());
    for (const QJsonValue value : values) {
        list.append(sixteenBytes(value));
    }
    return list;
}

std::optional<qint64> date(const QJsonValue &value) {
    if (value.isUndefined()) {
        return {};
    }
    constexpr qint64 none = std::numeric_limits<qint64>::max();
    const qint64 milliseconds = value.toInteger(none);
    if (milliseconds == none) {
        throw Unsound();
    }
    return milliseconds;
}

Operation decodedOperation(const QJsonObject &object) {
    Operation operation{sixteenBytes(object.value(IdentifierKey)),
                        string(object, NoteKey),
                        string(object, TitleKey),
                        string(object, TextKey),
                        date(object.value(ModifiedKey)),
                        identifiers(object, SupersedesKey),
                        sixteenBytes(object.value(SaltKey))};
    if (!operation.isSound()) {
        throw Unsound();
    }
    return operation;
}

Transaction decodedTransaction(const QJsonObject &object) {
    Transaction transaction;
    const QJsonArray operations = array(object, OperationsKey);
    transaction.operations.reserve(operations.size());
    for (const QJsonValue operation : operations) {
        transaction.operations.append(decodedOperation(operation.toObject()));
    }
    transaction.superseded = identifiers(object, SupersededKey);
    return transaction;
}

}  // namespace

QList<OperationId> Transaction::allSuperseded() const {
    QList<OperationId> all = superseded;
    for (const Operation &operation : operations) {
        all.append(operation.supersedes);
    }
    return all;
}

QByteArray Transaction::encoded() const {
    QByteArray record = ExactText::json({{VersionKey, Version},
                                         {SaltKey, hexadecimal(QUuid::createUuid().toRfc4122())},
                                         {SupersededKey, hexadecimals(superseded)}});
    record.chop(1);
    record += ",\"operations\":[";
    for (qsizetype i = 0; i < operations.size(); ++i) {
        QByteArray operation = ExactText::json(encodedOperation(operations[i]));
        operation.chop(1);
        record += (i == 0 ? "" : ",") + operation;
        if (!operations[i].note.isEmpty()) {
            record += ",\"text\":";
            record = appendingText(std::move(record), operations[i].text);
        }
        record += '}';
    }
    record += "]}";
    return record;
}

qint64 Transaction::cost(const QByteArray &record) {
    return JsonCost::estimate(record, Operation::NoteLimit, CostLimit);
}

Expected<Transaction> Transaction::decoded(QByteArray record, const QString &name) {
    if (record.size() > SizeLimit || cost(record) > CostLimit) {
        return failure(engineError(EngineErrorCode::BlobRefused,
                                   "The record “%1” is too large and was not read. Move it to "
                                   "another folder if it does not belong there.",
                                   name));
    }
    const QJsonObject object = ExactText::objectIn(std::move(record));
    const QJsonValue version = object.value(VersionKey);
    if (version.toInteger() > Version) {
        return failure(newerRecord(name));
    }
    try {
        if (version != Version) {
            throw Unsound();
        }
        return decodedTransaction(object);
    } catch (const Unsound &) {
        return failure(damagedRecord(name));
    }
}
