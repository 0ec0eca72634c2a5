#include "Engine/FolderStore.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QUuid>

#include "Engine/EngineError.h"
#include "Engine/EngineRemoteDatabase.h"
#include "Platform/Foundation/Localization.h"

namespace {

constexpr int recordVersion = 1;
constexpr qint64 largestRecord = 64 * 1024;

bool isDatabaseUUID(const QString &text) {
    return text == QLatin1StringView("@inbox") ||
           (!text.isEmpty() && QUuid::fromString(text).toString(QUuid::WithoutBraces) == text);
}

struct Record {
    QString UUID;
    QString name;
};

std::optional<Record> readRecord(const QFileInfo &info) {
    QFile file(info.filePath());
    if (!info.isFile() || info.isSymLink() || info.size() > largestRecord ||
        !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QJsonObject object = QJsonDocument::fromJson(file.read(largestRecord)).object();
    const Record record{object.value(QLatin1StringView("uuid")).toString(),
                        object.value(QLatin1StringView("name")).toString()};
    const bool isInOrder = object.value(QLatin1StringView("version")).toInt() == recordVersion &&
                           isDatabaseUUID(record.UUID) && record.UUID == info.completeBaseName() &&
                           !record.name.isEmpty();
    return isInOrder ? std::optional(record) : std::nullopt;
}

}  // namespace

FolderStore::FolderStore(std::shared_ptr<QVSyncLocation> location, QString path)
    : EngineStore(std::move(location)), m_path(std::move(path)) {}

std::optional<Error> FolderStore::open() {
    if (!QFileInfo(m_path).isDir()) {
        return engineError(EngineErrorCode::StoreMissing,
                           localizedSyncString("The folder %1 is not there.").arg(m_path));
    }
    const QDir package(m_path);
    if (!m_path.endsWith(QLatin1StringView(".qvSyncStore")) ||
        !package.exists(QStringLiteral("databases")) ||
        !package.exists(QStringLiteral("transactions"))) {
        return engineError(EngineErrorCode::StoreInvalid,
                           localizedSyncString("The folder %1 is not a sync store.").arg(m_path));
    }
    return std::nullopt;
}

EngineStore::Fetched FolderStore::fetchDatabases() {
    const QDir folder(m_path + QStringLiteral("/databases"));
    if (!folder.isReadable()) {
        return {
            std::nullopt,
            engineError(EngineErrorCode::StoreInvalid,
                        localizedSyncString("The folder %1 cannot be read.").arg(folder.path()))};
    }
    QVRemoteDatabases databases;
    QStringList damaged;
    const QFileInfoList files =
        folder.entryInfoList({QStringLiteral("*.json")}, QDir::Files | QDir::Hidden, QDir::Name);
    for (const QFileInfo &file : files) {
        if (const auto record = readRecord(file)) {
            databases.append(std::make_shared<EngineRemoteDatabase>(record->UUID, record->name,
                                                                    shared_from_this()));
        } else {
            damaged.append(file.fileName());
        }
    }
    if (damaged.isEmpty()) {
        return {databases, std::nullopt};
    }
    return {databases,
            engineError(EngineErrorCode::RecordInvalid,
                        localizedSyncString("Some records of databases cannot be understood: %1")
                            .arg(damaged.join(QStringLiteral(", "))))};
}
