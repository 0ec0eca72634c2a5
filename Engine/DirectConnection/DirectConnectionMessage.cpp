#include "Engine/DirectConnection/DirectConnectionMessage.h"

#include <QtCore/QCborStreamReader>
#include <QtCore/QCborValue>
#include <QtCore/QtEndian>

QCborMap DirectConnectionMessage::ofType(const QString &type) {
    return {{Type, type}};
}

QByteArray DirectConnectionMessage::encode(const QCborMap &message) {
    const QByteArray body = message.toCborValue().toCbor();
    QByteArray bytes(LengthSize, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(body.size()), bytes.data());
    return bytes + body;
}

qsizetype DirectConnectionMessage::length(const QByteArray &start) {
    return qFromBigEndian<quint32>(start.constData());
}

std::optional<QCborMap> DirectConnectionMessage::decode(const QByteArray &body) {
    QCborStreamReader reader(body);
    const QCborValue value = QCborValue::fromCbor(reader);
    const bool isWhole = reader.lastError() == QCborError::NoError && value.isMap() &&
                         reader.currentOffset() == body.size();
    return isWhole ? std::optional(value.toMap()) : std::nullopt;
}
