#include "Engine/DirectConnection/DirectConnectionMessage.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborStreamWriter>
#include <QtCore/QCborValue>
#include <QtCore/QtEndian>

using namespace DirectConnectionMessage;

namespace {

/// Skips a string without copying it.
bool skipString(QCborStreamReader &reader) {
    return reader.isLengthKnown() &&
           reader.readStringChunk(nullptr, 0).status == QCborStreamReader::Ok &&
           reader.readStringChunk(nullptr, 0).status == QCborStreamReader::EndOfString;
}

bool isWithinLimits(QCborStreamReader &reader, int depth, int &itemsLeft);

/// Skips one item and returns whether it is within the limits.
bool isItemWithinLimits(QCborStreamReader &reader, int depth, int &itemsLeft) {
    if (--itemsLeft < 0 || reader.isTag()) {
        return false;
    }
    if (reader.isContainer()) {
        return depth < DeepestNesting && reader.enterContainer() &&
               isWithinLimits(reader, depth + 1, itemsLeft) && reader.leaveContainer();
    }
    return reader.isString() || reader.isByteArray() ? skipString(reader) : reader.next();
}

bool isWithinLimits(QCborStreamReader &reader, int depth, int &itemsLeft) {
    while (reader.hasNext()) {
        if (!isItemWithinLimits(reader, depth, itemsLeft)) {
            return false;
        }
    }
    return reader.lastError() == QCborError::NoError;
}

bool isOneMap(const QByteArray &body) {
    QCborStreamReader reader(body);
    int itemsLeft = MostItems;
    return reader.isMap() && isItemWithinLimits(reader, 0, itemsLeft) &&
           reader.currentOffset() == body.size();
}

/// Where the contents are in a body.
struct Place {
    qsizetype position = 0;
    qsizetype size = 0;
};

/// Reads a text. Returns an empty optional if it is not valid UTF-8, which QCborValue cannot hold.
std::optional<QString> readText(QCborStreamReader &reader) {
    QString text;
    auto piece = reader.readString();
    for (; piece.status == QCborStreamReader::Ok; piece = reader.readString()) {
        text += piece.data;
    }
    return piece.status == QCborStreamReader::EndOfString ? std::optional(text) : std::nullopt;
}

/// Reads the next key and value: the contents into `contents`, anything else into `values`.
bool readMember(QCborStreamReader &reader, QCborMap &values, std::optional<Place> &contents) {
    const std::optional<QString> key = readText(reader);
    if (!key) {
        return false;
    }
    if (*key == Contents && reader.isByteArray()) {
        const qsizetype size = reader.currentStringChunkSize();
        const bool isSkipped = skipString(reader);
        contents = Place{reader.currentOffset() - size, size};
        return isSkipped;
    }
    QCborValue value = QCborValue::fromCbor(reader);
    if (reader.lastError() != QCborError::NoError) {
        return false;
    }
    values[*key] = std::move(value);
    return true;
}

bool readMembers(const QByteArray &body, QCborMap &values, std::optional<Place> &contents) {
    QCborStreamReader reader(body);
    bool isSound = reader.enterContainer();
    for (int count = 0; isSound && reader.hasNext(); ++count) {
        isSound = count < MostMembers && reader.isString() && readMember(reader, values, contents);
    }
    return isSound;
}

}  // namespace

QCborMap DirectConnectionMessage::ofType(const QString &type) {
    return {{Type, type}};
}

QByteArray DirectConnectionMessage::encode(const QCborMap &message) {
    const QByteArray body = message.toCborValue().toCbor();
    QByteArray bytes(LengthSize, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(body.size()), bytes.data());
    return bytes + body;
}

QByteArray DirectConnectionMessage::encodeBeforeContents(const QCborMap &message, qsizetype size) {
    QByteArray body;
    QCborStreamWriter writer(&body);
    writer.startMap(static_cast<quint64>(message.size()) + 1);
    for (const QCborMap::ConstIterator::value_type member : message) {
        QCborValue(member.first).toCbor(writer);
        QCborValue(member.second).toCbor(writer);
    }
    writer.append(Contents);
    // A byte string of this size follows, its size being in four bytes (RFC 8949, section 3).
    QByteArray start(1 + LengthSize, '\x5a');
    qToBigEndian(static_cast<quint32>(size), start.data() + 1);
    body += start;
    QByteArray bytes(LengthSize, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(body.size() + size), bytes.data());
    return bytes + body;
}

qsizetype DirectConnectionMessage::length(const QByteArray &start) {
    return qFromBigEndian<quint32>(start.constData());
}

std::optional<Received> DirectConnectionMessage::decode(QByteArray body) {
    Received message;
    std::optional<Place> contents;
    if (!isOneMap(body) || !readMembers(body, message.values, contents)) {
        return {};
    }
    if (contents) {
        body.remove(0, contents->position);
        body.truncate(contents->size);
        message.contents = std::move(body);
    }
    return message;
}
