#include "Engine/Notes/TransactionName.h"

#include <QtCore/QUuid>

#include "Engine/Foundation/Sha256.h"
#include "Engine/Notes/Operation.h"
#include "Host/SyncStoreLayout.h"

namespace {

constexpr qsizetype UUIDSize = 16;
/// The version of the UUID, and where its text states it.
constexpr QChar DigestVersion = u'8';
constexpr qsizetype PositionOfVersion = 14;

const QString DamagedMark = QStringLiteral(".damaged-");

QString stem(const QString &name) {
    return name.chopped(SyncStoreLayout::RecordEnding.size());
}

}  // namespace

QString TransactionName::folder(const QString &databaseUUID) {
    return SyncStoreLayout::TransactionsFolder + u'/' + databaseUUID;
}

QString TransactionName::of(const QByteArray &record) {
    QByteArray bytes = sha256(record).first(UUIDSize);
    // The bits that RFC 9562 reserves for version and variant.
    bytes[6] = static_cast<char>((bytes[6] & 0x0f) | 0x80);
    bytes[8] = static_cast<char>((bytes[8] & 0x3f) | 0x80);
    return QUuid::fromRfc4122(bytes).toString(QUuid::WithoutBraces) + SyncStoreLayout::RecordEnding;
}

bool TransactionName::isValid(const QString &name) {
    return name.endsWith(SyncStoreLayout::RecordEnding) && Operation::isUUID(stem(name));
}

bool TransactionName::matches(const QString &name, const QByteArray &record) {
    return !hasDigest(name) || name == of(record);
}

bool TransactionName::hasDigest(const QString &name) {
    return name.at(PositionOfVersion) == DigestVersion;
}

QString TransactionName::ofDamaged(const QString &name, const QByteArray &record, int attempt) {
    constexpr qsizetype bytes = 8;
    const QByteArray digest = sha256(record + QByteArray(attempt, '\0'));
    return stem(name) + DamagedMark + QString::fromLatin1(digest.first(bytes).toHex());
}

bool TransactionName::isOfDamaged(const QString &name) {
    return Operation::isUUID(name.section(DamagedMark, 0, 0)) && name.contains(DamagedMark);
}
