#include "Engine/FolderStore.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUuid>

#include "Engine/EngineError.h"
#include "Engine/InboxUUID.h"
#include "Platform/Foundation/Localization.h"

namespace {

bool isUUID(const QString &text) {
    return text == InboxUUID ||
           QUuid::fromString(text).toString(QUuid::WithoutBraces) == text.toLower();
}

/// The name in the record `file` of the database `UUID`; nothing where it is not a sound record.
std::optional<QString> databaseName(const QFileInfo &file, const QString &UUID) {
    // What is no plain file might never end, or be somewhere else.
    if (!isUUID(UUID) || file.isSymLink() || !file.isFile()) {
        return {};
    }
    QFile record(file.filePath());
    if (!record.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray contents = record.read(FolderStore::RecordLimit + 1);
    if (record.error() != QFileDevice::NoError || contents.size() > FolderStore::RecordLimit) {
        return {};
    }
    const QJsonObject object = QJsonDocument::fromJson(contents).object();
    const QString name = object.value(QStringLiteral("name")).toString();
    const bool isSound = object.value(QStringLiteral("uuid")) == UUID &&
                         object.value(QStringLiteral("version")) == 1 && !name.trimmed().isEmpty();
    return isSound ? std::optional(name) : std::nullopt;
}

}  // namespace

QString FolderStore::folder(const QString &name) const {
    return URL().path() + u'/' + name;
}

std::optional<Error> FolderStore::open() {
    const QString path = URL().path();
    const QString host = URL().host();
    if (!host.isEmpty() && host != QStringLiteral("localhost")) {
        return engineError(EngineErrorCode::StoreUnreachable,
                           "“%1” is a folder on another computer.", URL().absoluteString());
    }
    if (!path.startsWith(u'/') || !QFileInfo::exists(path)) {
        return engineError(EngineErrorCode::StoreUnreachable, "The sync store “%1” is not there.",
                           path);
    }
    const bool isPackage = QFileInfo(path).suffix() == QStringLiteral("qvSyncStore") &&
                           QFileInfo(folder(QStringLiteral("databases"))).isDir() &&
                           QFileInfo(folder(QStringLiteral("transactions"))).isDir();
    if (!isPackage) {
        return engineError(EngineErrorCode::StoreUnreachable, "“%1” is not a sync store.", path);
    }
    if (!QDir(folder(QStringLiteral("databases"))).isReadable()) {
        return engineError(EngineErrorCode::StoreUnreachable,
                           "The sync store “%1” may not be read.", path);
    }
    return {};
}

EngineStore::Fetched FolderStore::fetch(const PZFuture &future) {
    if (std::optional<Error> error = open()) {
        return {{}, error};
    }
    const QFileInfoList files =
        QDir(folder(QStringLiteral("databases")))
            .entryInfoList({QStringLiteral("*.json")}, QDir::AllEntries | QDir::System, QDir::Name);
    Fetched fetched{QVRemoteDatabases(), {}};
    for (const QFileInfo &file : files) {
        if (future.isCancelled()) {
            break;
        }
        const QString UUID = file.completeBaseName();
        if (const std::optional<QString> name = databaseName(file, UUID)) {
            fetched.databases->append(record(UUID, *name));
        } else if (!fetched.error) {
            fetched.error = engineError(
                EngineErrorCode::DamagedRecord,
                localizedSyncString("The record “%1” is damaged.").arg(file.filePath()));
        }
    }
    return fetched;
}
