#include "Engine/Notes/DatabaseRecord.h"

#include <QtCore/QJsonObject>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/Operation.h"
#include "Host/InboxUUID.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/ExactText.h"

namespace {

const QString RecordVersion = QStringLiteral("version");
const QString RecordUUID = QStringLiteral("uuid");
const QString RecordName = QStringLiteral("name");

}  // namespace

bool DatabaseRecord::isUUID(const QString &text) {
    return text == InboxUUID || Operation::isUUID(text);
}

QString DatabaseRecord::path(const QString &databaseUUID) {
    return SyncStoreLayout::DatabasesFolder + u'/' + databaseUUID + SyncStoreLayout::RecordEnding;
}

std::optional<QString> DatabaseRecord::databaseUUID(const QString &file) {
    const QString UUID = file.chopped(qMin(file.size(), SyncStoreLayout::RecordEnding.size()));
    const bool isRecord = file.endsWith(SyncStoreLayout::RecordEnding) && isUUID(UUID);
    return isRecord ? std::optional(UUID) : std::nullopt;
}

QByteArray DatabaseRecord::encoded(const QString &databaseUUID, const QString &name) {
    return ExactText::json(
        {{RecordVersion, Version}, {RecordUUID, databaseUUID}, {RecordName, name}});
}

Expected<QString> DatabaseRecord::name(const QByteArray &record, const QString &databaseUUID,
                                       const QString &place) {
    const QJsonObject object = ExactText::objectIn(record);
    const QJsonValue version = object.value(RecordVersion);
    if (version.toInteger() > Version) {
        return failure(newerRecord(place));
    }
    const QString name = object.value(RecordName).toString();
    const bool isSound = version == Version && object.value(RecordUUID) == databaseUUID &&
                         name.isValidUtf16() && Operation::isName(name);
    if (!isSound) {
        return failure(damagedRecord(place));
    }
    return name;
}
