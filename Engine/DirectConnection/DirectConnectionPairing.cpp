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
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData("velmora commitment");
    hash.addData(clientNonce);
    hash.addData(clientSecret.view());
    return hash.result();
}

QString DirectConnectionPairing::code() const {
    // All parts but the name have a fixed size, so no other parts give the same bytes.
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData("velmora code");
    hash.addData(serverFingerprint);
    hash.addData(clientNonce);
    hash.addData(clientSecret.view());
    hash.addData(serverNonce);
    hash.addData(clientName.toUtf8());
    const quint64 number = qFromBigEndian<quint64>(hash.result().constData()) % CodeCount;
    const QString digits = QStringLiteral("%1").arg(number, 6, 10, QLatin1Char('0'));
    // Separated by a no-break space.
    return digits.left(3) + QChar(QChar::Nbsp) + digits.mid(3);
}
