#include "Engine/Plugin/ServedStoreSynchronizer.h"

#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <utility>

#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/InboxUUID.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int MillisecondsToWait = 5000;

}  // namespace

ServedStoreSynchronizer::ServedStoreSynchronizer(EngineDispatcher &dispatcher,
                                                 EngineNoteLibrary &library,
                                                 std::shared_ptr<EngineSyncLocation> location)
    : m_dispatcher(dispatcher), m_library(library), m_location(std::move(location)) {}

ServedStoreSynchronizer::~ServedStoreSynchronizer() = default;

void ServedStoreSynchronizer::clientWillRead(std::function<void()> proceed) {
    const auto once = std::make_shared<std::function<void()>>(std::move(proceed));
    const auto proceedOnce = [once] {
        if (const std::function<void()> call = std::exchange(*once, nullptr)) {
            call();
        }
    };
    QTimer::singleShot(MillisecondsToWait, m_location.get(), proceedOnce);
    synchronize(proceedOnce);
}

void ServedStoreSynchronizer::clientsDidWrite() {
    if (m_isTakingOver) {
        m_hasMoreToTakeOver = true;
        return;
    }
    m_isTakingOver = true;
    synchronize([this] {
        m_isTakingOver = false;
        if (std::exchange(m_hasMoreToTakeOver, false)) {
            clientsDidWrite();
        }
    });
}

QStringList ServedStoreSynchronizer::databaseUUIDs() const {
    QStringList UUIDs;
    for (const auto &database : m_library.knownDatabases()) {
        UUIDs.append(database->isInbox() ? InboxUUID : database->UUID());
    }
    const QDir records(m_location->URL().path() + QStringLiteral("/databases"));
    for (const QFileInfo &record : records.entryInfoList({QStringLiteral("*.json")}, QDir::Files)) {
        UUIDs.append(record.completeBaseName());
    }
    UUIDs.removeDuplicates();
    return UUIDs;
}

void ServedStoreSynchronizer::synchronize(const std::function<void()> &handler) {
    const QStringList UUIDs = databaseUUIDs();
    const auto left = std::make_shared<qsizetype>(UUIDs.size());
    for (const QString &UUID : UUIDs) {
        m_dispatcher.synchronizeWithStore({.databaseUUID = UUID,
                                           .databaseName = UUID,
                                           .store = Place,
                                           .place = localizedSyncString("direct connections")},
                                          m_location->createBlobStore(),
                                          [left, handler](const auto & /*result*/) {
                                              if (--*left == 0) {
                                                  handler();
                                              }
                                          });
    }
}
