#include "Engine/DirectConnection/DirectConnectionMessage.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborStreamWriter>
#include <QtCore/QCborValue>
#include <QtCore/QtEndian>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

using namespace DirectConnectionMessage;

namespace {

/// What QCborValue takes for a value besides the bytes of a string, and for a list or map.
constexpr qsizetype ItemMemory = 32;
constexpr qsizetype ContainerMemory = 256;

Expected<void> validIf(bool isValid) {
    return isValid ? Expected<void>() : failure(notValid());
}

/// Skips a string of known length without copying it.
Expected<void> skipString(QCborStreamReader &reader) {
    return validIf(reader.isLengthKnown() &&
                   reader.readStringChunk(nullptr, 0).status == QCborStreamReader::Ok &&
                   reader.readStringChunk(nullptr, 0).status == QCborStreamReader::EndOfString);
}

/// Fails unless the string at which the reader is has a known length, which is at most `longest`.
Expected<void> checkLength(const QCborStreamReader &reader, qsizetype longest) {
    if (!reader.isLengthKnown()) {
        return failure(notValid());
    }
    return reader.currentStringChunkSize() <= longest ? Expected<void>() : failure(tooLarge());
}

Expected<void> checkItems(QCborStreamReader &reader, int depth, qsizetype &memoryLeft);

/// Skips one item. Fails if it is not within the limits.
Expected<void> checkItem(QCborStreamReader &reader, int depth, qsizetype &memoryLeft) {
    const bool isString = reader.isString() || reader.isByteArray();
    Expected<void> length =
        isString ? checkLength(reader, LongestString) : validIf(!reader.isTag());
    if (!length) {
        return length;
    }
    memoryLeft -= reader.isContainer() ? ContainerMemory : ItemMemory;
    memoryLeft -= isString ? reader.currentStringChunkSize() : 0;
    if (memoryLeft < 0 || (reader.isContainer() && depth >= DeepestNesting)) {
        return failure(tooLarge());
    }
    if (reader.isContainer()) {
        return validIf(reader.enterContainer())
            .and_then([&] { return checkItems(reader, depth + 1, memoryLeft); })
            .and_then([&] { return validIf(reader.leaveContainer()); });
    }
    return isString ? skipString(reader) : validIf(reader.next());
}

Expected<void> checkItems(QCborStreamReader &reader, int depth, qsizetype &memoryLeft) {
    while (reader.hasNext()) {
        if (Expected<void> item = checkItem(reader, depth, memoryLeft); !item) {
            return item;
        }
    }
    return validIf(reader.lastError() == QCborError::NoError);
}

/// Where the contents are in a body.
struct Place {
    qsizetype position = 0;
    qsizetype size = 0;
};

/// Reads a short text. Fails if it is not valid UTF-8, which QCborValue cannot hold.
Expected<QString> readKey(QCborStreamReader &reader) {
    const Expected<void> length =
        validIf(reader.isString()).and_then([&] { return checkLength(reader, LongestKey); });
    if (!length) {
        return failure(length.error());
    }
    QString text;
    auto piece = reader.readString();
    for (; piece.status == QCborStreamReader::Ok; piece = reader.readString()) {
        text += piece.data;
    }
    return piece.status == QCborStreamReader::EndOfString ? Expected<QString>(text)
                                                          : failure(notValid());
}

/// Skips the contents, at which the reader is, and returns where they are.
Expected<Place> readPlace(QCborStreamReader &reader) {
    const qsizetype size = reader.isLengthKnown() ? reader.currentStringChunkSize() : 0;
    return skipString(reader).map([&] { return Place{reader.currentOffset() - size, size}; });
}

/// Reads `body`, which must be one map. Skips the contents, whose place it returns, and calls
/// `take` with any other key and with the reader at its value. Fails as soon as that does, or if
/// anything is not valid.
template <class Take>
Expected<std::optional<Place>> readMembers(const QByteArray &body, const Take &take) {
    QCborStreamReader reader(body);
    std::optional<Place> contents;
    Expected<void> read = validIf(reader.isMap() && reader.enterContainer());
    for (int count = 0; read && reader.hasNext(); ++count) {
        const Expected<QString> key = count < MostMembers ? readKey(reader) : failure(tooLarge());
        read = key.and_then([&](const QString &name) -> Expected<void> {
            return name == Contents && reader.isByteArray()
                       ? readPlace(reader).map([&](const Place &place) { contents = place; })
                       : take(name, reader);
        });
    }
    return read
        .and_then([&] {
            return validIf(reader.lastError() == QCborError::NoError && reader.leaveContainer() &&
                           reader.currentOffset() == body.size());
        })
        .map([&] { return contents; });
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

Expected<Received> DirectConnectionMessage::decode(QByteArray body, qsizetype memory) {
    Received message;
    const auto check = [&](const QString & /*key*/, QCborStreamReader &reader) {
        return checkItem(reader, 1, memory);
    };
    const auto take = [&](const QString &key, QCborStreamReader &reader) {
        const QCborValue value = QCborValue::fromCbor(reader);
        // A value whose text is no UTF-8 has no contents, and must not be put into a map.
        const bool isSound = reader.lastError() == QCborError::NoError && !value.isInvalid();
        if (isSound) {
            message.values.insert(key, value);
        }
        return validIf(isSound);
    };
    // Nothing is made of a body before all of it has been checked.
    const Expected<std::optional<Place>> contents =
        readMembers(body, check).and_then([&](const std::optional<Place> & /*contents*/) {
            return readMembers(body, take);
        });
    if (!contents) {
        return failure(contents.error());
    }
    if (const std::optional<Place> &place = *contents) {
        body.remove(0, place->position);
        body.truncate(place->size);
        message.contents = std::move(body);
    }
    return message;
}

Error DirectConnectionMessage::notValid() {
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The message is not valid."));
}

Error DirectConnectionMessage::tooLarge() {
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The message is too large or has too many parts."));
}
