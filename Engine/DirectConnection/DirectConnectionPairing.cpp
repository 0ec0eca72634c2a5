#include "Engine/DirectConnection/DirectConnectionPairing.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QRandomGenerator>
#include <QtCore/QtEndian>
#include <array>

namespace {

constexpr quint64 CodeCount = 1000000;

}  // namespace

QByteArray DirectConnectionPairing::random() {
    std::array<quint32, RandomSize / sizeof(quint32)> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    return QByteArray(reinterpret_cast<const char *>(words.data()), RandomSize);
}

QByteArray DirectConnectionPairing::commitment() const {
    return QCryptographicHash::hash("velmora commitment" + clientNonce + clientSecret,
                                    QCryptographicHash::Sha256);
}

QString DirectConnectionPairing::code() const {
    // All parts but the name have a fixed size, so no other parts give the same bytes.
    const QByteArray digest =
        QCryptographicHash::hash("velmora code" + serverFingerprint + clientNonce + clientSecret +
                                     serverNonce + clientName.toUtf8(),
                                 QCryptographicHash::Sha256);
    const quint64 number = qFromBigEndian<quint64>(digest.constData()) % CodeCount;
    const QString digits = QStringLiteral("%1").arg(number, 6, 10, QLatin1Char('0'));
    // Separated by a no-break space.
    return digits.left(3) + QChar(QChar::Nbsp) + digits.mid(3);
}
