#include "Engine/DirectConnection/DirectConnectionMessage.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborStreamWriter>
#include <QtCore/QCborValue>
#include <QtCore/QtEndian>

using namespace DirectConnectionMessage;

namespace {

/// What QCborValue takes for a value besides the bytes of a string, and for a list or map.
constexpr qsizetype ItemMemory = 32;
constexpr qsizetype ContainerMemory = 256;

/// Skips a string without copying it.
bool skipString(QCborStreamReader &reader) {
    return reader.isLengthKnown() &&
           reader.readStringChunk(nullptr, 0).status == QCborStreamReader::Ok &&
           reader.readStringChunk(nullptr, 0).status == QCborStreamReader::EndOfString;
}

/// Returns whether the reader is at a string of known length, which is at most `longest`.
bool isAtShortString(const QCborStreamReader &reader, qsizetype longest) {
    return reader.isLengthKnown() && reader.currentStringChunkSize() <= longest;
}

bool areItemsWithinLimits(QCborStreamReader &reader, int depth, qsizetype &memoryLeft);

/// Skips one item and returns whether it is within the limits.
bool isItemWithinLimits(QCborStreamReader &reader, int depth, qsizetype &memoryLeft) {
    const bool isString = reader.isString() || reader.isByteArray();
    if (reader.isTag() || (isString && !isAtShortString(reader, LongestString))) {
        return false;
    }
    memoryLeft -= reader.isContainer() ? ContainerMemory : ItemMemory;
    memoryLeft -= isString ? reader.currentStringChunkSize() : 0;
    if (memoryLeft < 0) {
        return false;
    }
    if (reader.isContainer()) {
        return depth < DeepestNesting && reader.enterContainer() &&
               areItemsWithinLimits(reader, depth + 1, memoryLeft) && reader.leaveContainer();
    }
    return isString ? skipString(reader) : reader.next();
}

bool areItemsWithinLimits(QCborStreamReader &reader, int depth, qsizetype &memoryLeft) {
    while (reader.hasNext()) {
        if (!isItemWithinLimits(reader, depth, memoryLeft)) {
            return false;
        }
    }
    return reader.lastError() == QCborError::NoError;
}

/// Where the contents are in a body.
struct Place {
    qsizetype position = 0;
    qsizetype size = 0;
};

/// Reads a short text. Returns an empty optional if it is not valid UTF-8, which QCborValue cannot
/// hold.
std::optional<QString> readKey(QCborStreamReader &reader) {
    if (!reader.isString() || !isAtShortString(reader, LongestKey)) {
        return {};
    }
    QString text;
    auto piece = reader.readString();
    for (; piece.status == QCborStreamReader::Ok; piece = reader.readString()) {
        text += piece.data;
    }
    return piece.status == QCborStreamReader::EndOfString ? std::optional(text) : std::nullopt;
}

/// Reads `body`, which must be one map. Skips the contents, whose place it stores, and calls `take`
/// with any other key and with the reader at its value. Returns false as soon as that does, or if
/// anything is not valid.
template <class Take>
bool readMembers(const QByteArray &body, std::optional<Place> &contents, const Take &take) {
    QCborStreamReader reader(body);
    bool isSound = reader.isMap() && reader.enterContainer();
    for (int count = 0; isSound && reader.hasNext(); ++count) {
        const std::optional<QString> key = count < MostMembers ? readKey(reader) : std::nullopt;
        if (key == Contents && reader.isByteArray()) {
            const qsizetype size = reader.isLengthKnown() ? reader.currentStringChunkSize() : 0;
            isSound = skipString(reader);
            contents = Place{reader.currentOffset() - size, size};
        } else {
            isSound = key && take(*key, reader);
        }
    }
    return isSound && reader.lastError() == QCborError::NoError && reader.leaveContainer() &&
           reader.currentOffset() == body.size();
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

std::optional<Received> DirectConnectionMessage::decode(QByteArray body, qsizetype memory) {
    Received message;
    std::optional<Place> contents;
    const auto isWithinLimits = [&](const QString & /*key*/, QCborStreamReader &reader) {
        return isItemWithinLimits(reader, 1, memory);
    };
    const auto take = [&](const QString &key, QCborStreamReader &reader) {
        const QCborValue value = QCborValue::fromCbor(reader);
        // A value whose text is no UTF-8 has no contents, and must not be put into a map.
        const bool isSound = reader.lastError() == QCborError::NoError && !value.isInvalid();
        if (isSound) {
            message.values.insert(key, value);
        }
        return isSound;
    };
    // Nothing is made of a body before all of it has been checked.
    if (!readMembers(body, contents, isWithinLimits) || !readMembers(body, contents, take)) {
        return {};
    }
    if (contents) {
        body.remove(0, contents->position);
        body.truncate(contents->size);
        message.contents = std::move(body);
    }
    return message;
}
