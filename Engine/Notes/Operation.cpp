#include "Engine/Notes/Operation.h"

#include <algorithm>
#include <limits>

#include "Engine/Foundation/Sha256.h"

namespace {

constexpr qint64 FirstDate = -62135596800000;
constexpr qint64 LastDate = 253402300799999;

void sortIdentifiers(QList<OperationId> &identifiers) {
    std::sort(identifiers.begin(), identifiers.end());
    identifiers.erase(std::unique(identifiers.begin(), identifiers.end()), identifiers.end());
}

/// Returns a salt that follows from `bytes`, so that all computers make the same operation.
QByteArray saltFrom(const QByteArray &bytes) {
    return sha256(bytes).first(Operation::IdentifierSize);
}

}  // namespace

Operation Operation::make(const QString &note, const QString &title, const QString &text,
                          std::optional<qint64> modified, QList<OperationId> supersedes) {
    sortIdentifiers(supersedes);
    Operation operation{
        {}, note, title, text, modified, std::move(supersedes), QUuid::createUuid().toRfc4122()};
    operation.id = operation.computedId();
    return operation;
}

Operation Operation::renewed() const {
    Operation operation = *this;
    operation.supersedes = {id};
    operation.salt = saltFrom("renewed " + id);
    operation.id = operation.computedId();
    return operation;
}

Operation Operation::resolving(QList<OperationId> superseded) const {
    sortIdentifiers(superseded);
    Operation operation = *this;
    operation.salt = saltFrom("resolved " + packed(superseded));
    operation.supersedes = std::move(superseded);
    operation.id = operation.computedId();
    return operation;
}

OperationId Operation::computedId() const {
    const QByteArray titleBytes = title.toUtf8();
    QByteArrayList superseded;
    superseded.reserve(supersedes.size());
    for (const OperationId &identifier : supersedes) {
        superseded.append(identifier.toHex());
    }
    const QByteArray beginning = note.toUtf8() + '\n' + salt.toHex() + '\n' +
                                 (modified ? QByteArray::number(*modified) : QByteArray()) + '\n' +
                                 superseded.join(',') + '\n' +
                                 QByteArray::number(titleBytes.size()) + '\n';
    return sha256({beginning, titleBytes, text.toUtf8()}).first(IdentifierSize);
}

bool Operation::isSound() const {
    const bool isNoteSound = note.isEmpty() ? isName(title) && text.isEmpty() : isUUID(note);
    const bool isTextSound = title.isValidUtf16() && text.isValidUtf16() &&
                             title.toUtf8().size() + text.toUtf8().size() <= NoteLimit;
    const bool isDateSound = !modified || isDate(*modified);
    const bool areSupersededSound = supersedes.size() <= SupersedesLimit &&
                                    std::adjacent_find(supersedes.begin(), supersedes.end(),
                                                       std::greater_equal<>()) == supersedes.end();
    return isNoteSound && isTextSound && isDateSound && areSupersededSound && id == computedId();
}

bool Operation::comesBefore(const Operation &other) const {
    constexpr qint64 never = std::numeric_limits<qint64>::min();
    return std::pair(modified.value_or(never), id) >
           std::pair(other.modified.value_or(never), other.id);
}

QString Operation::UUIDOfCopy() const {
    return UUIDOfCopy(QUuid(note), id).toString(QUuid::WithoutBraces);
}

QUuid Operation::UUIDOfCopy(const QUuid &note, const OperationId &id) {
    return QUuid::createUuidV5(note, id.toHex());
}

QByteArray Operation::packed(const QList<OperationId> &identifiers) {
    QByteArray bytes("");
    bytes.reserve(identifiers.size() * IdentifierSize);
    for (const OperationId &identifier : identifiers) {
        bytes.append(identifier);
    }
    return bytes;
}

QList<OperationId> Operation::unpacked(const QByteArray &bytes) {
    QList<OperationId> identifiers;
    identifiers.reserve(bytes.size() / IdentifierSize);
    for (qsizetype at = 0; at < bytes.size(); at += IdentifierSize) {
        identifiers.append(bytes.mid(at, IdentifierSize));
    }
    return identifiers;
}

bool Operation::isName(const QString &text) {
    return !text.trimmed().isEmpty() && text.toUtf8().size() <= NameLimit;
}

bool Operation::isUUID(const QString &text) {
    const QUuid UUID(text);
    return !UUID.isNull() && UUID.toString(QUuid::WithoutBraces) == text;
}

bool Operation::isDate(qint64 milliseconds) {
    return milliseconds >= FirstDate && milliseconds <= LastDate;
}
