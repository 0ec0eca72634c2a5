#include "Engine/DirectConnectionRecords.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include "Engine/EngineNoteLibrary.h"
#include "Engine/InboxUUID.h"
#include "Platform/Foundation/Log.h"

DirectConnectionRecords::DirectConnectionRecords(const EngineNoteLibrary &library,
                                                 const DirectConnectionPackage &package)
    : m_library(library), m_package(package) {}

void DirectConnectionRecords::clientWillRead(std::function<void()> proceed) {
    for (const auto &database : m_library.knownDatabases()) {
        writeRecord(database->isInbox() ? InboxUUID : database->UUID(), database->name());
    }
    proceed();
}

void DirectConnectionRecords::writeRecord(const QString &UUID, const QString &name) const {
    const QString record = QStringLiteral("databases/%1.json").arg(UUID);
    const QByteArray contents = QJsonDocument(QJsonObject{{QStringLiteral("uuid"), UUID},
                                                          {QStringLiteral("name"), name},
                                                          {QStringLiteral("version"), 1}})
                                    .toJson();
    const Result<QByteArray> present = m_package.read(record, BlobStore::RecordLimit);
    const QByteArray *bytes = std::get_if<QByteArray>(&present);
    if (bytes && *bytes == contents) {
        return;
    }
    std::optional<Error> error = m_package.remove(record);
    if (!error) {
        const auto written = m_package.writeIfAbsent(record, contents);
        error = errorOf(written) ? std::optional(*errorOf(written)) : std::nullopt;
    }
    if (error) {
        Log::message(error->localizedDescription);
    }
}
