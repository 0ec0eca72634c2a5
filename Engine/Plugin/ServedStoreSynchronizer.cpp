#include "Engine/Plugin/ServedStoreSynchronizer.h"

#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <filesystem>
#include <utility>

#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/FailureLog.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/InboxUUID.h"
#include "Host/QVJobLog.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int MillisecondsToWait = 5000;
/// The maximum number of files in the folder of the databases' records that are looked at.
constexpr int MostRecords = 10'000;

}  // namespace

ServedStoreSynchronizer::ServedStoreSynchronizer(EngineDispatcher &dispatcher,
                                                 EngineNoteLibrary &library,
                                                 std::shared_ptr<EngineSyncLocation> location,
                                                 std::shared_ptr<const ServedDatabases> served,
                                                 qsizetype mostDatabases)
    : m_dispatcher(dispatcher),
      m_library(library),
      m_location(std::move(location)),
      m_served(std::move(served)),
      m_mostDatabases(mostDatabases) {}

ServedStoreSynchronizer::~ServedStoreSynchronizer() = default;

void ServedStoreSynchronizer::clientWillRead(std::function<void()> proceed) {
    const auto once = std::make_shared<std::function<void()>>(std::move(proceed));
    const auto proceedOnce = [once] {
        if (const std::function<void()> call = std::exchange(*once, nullptr)) {
            call();
        }
    };
    QTimer::singleShot(MillisecondsToWait, m_location.get(), proceedOnce);
    request(proceedOnce);
}

void ServedStoreSynchronizer::clientsDidWrite() {
    if (m_waiting.isEmpty()) {
        request([] {});
    }
}

void ServedStoreSynchronizer::request(std::function<void()> handler) {
    m_waiting.append(std::move(handler));
    if (!m_isSynchronizing) {
        synchronize();
    }
}

QStringList ServedStoreSynchronizer::databaseUUIDs() {
    QStringList UUIDs;
    const auto known = m_library.knownDatabases();
    for (const auto &database : known) {
        UUIDs.append(UUIDInStores(*database, m_library.inbox().get()));
    }
    const QSet<QString> present(UUIDs.begin(), UUIDs.end());
    qsizetype refused = 0;
    const Expected<QStringList> names = recordNames();
    logFailureOf(names.map([](const QStringList &) {}));
    for (const QString &name : names.value_or(QStringList())) {
        const std::optional<QString> UUID = DatabaseRecord::databaseUUID(name);
        if (!UUID || present.contains(*UUID)) {
            continue;
        }
        if (UUIDs.size() < m_mostDatabases) {
            UUIDs.append(*UUID);
        } else {
            ++refused;
        }
    }
    reportRefused(refused);
    UUIDs.removeIf([this](const QString &UUID) { return !m_served->contain(UUID); });
    return UUIDs;
}

Expected<QStringList> ServedStoreSynchronizer::recordNames() const {
    const QString folder = m_location->URL().path() + u'/' + SyncStoreLayout::DatabasesFolder;
    QStringList names;
    std::error_code error;
    // QDirIterator would report no record if the folder cannot be read.
    for (std::filesystem::directory_iterator entry(QFile::encodeName(folder).constData(), error),
         end;
         !error && entry != end && names.size() < MostRecords; entry.increment(error)) {
        names.append(QFile::decodeName(entry->path().filename().c_str()));
    }
    if (error) {
        return failure(engineError(
            EngineErrorCode::ServerUnusable,
            localizedSyncString("The folder “%1” cannot be read: %2. Databases that were added on "
                                "other computers are not synchronized. Check its permissions and "
                                "its disk.")
                .arg(folder, QString::fromStdString(error.message()))));
    }
    return names;
}

void ServedStoreSynchronizer::reportRefused(qsizetype count) {
    if (std::exchange(m_refused, count) != count && count > 0) {
        QVJobLog::logMessage(
            localizedSyncString("Databases of other computers that were not added: %1. This "
                                "computer adds none from direct connections if it has %2 already. "
                                "To get them, use another location on both computers.")
                .arg(count)
                .arg(m_mostDatabases));
    }
}

void ServedStoreSynchronizer::synchronize() {
    m_isSynchronizing = true;
    const QStringList UUIDs = databaseUUIDs();
    const auto left = std::make_shared<qsizetype>(UUIDs.size());
    const auto handlers = std::exchange(m_waiting, {});
    if (UUIDs.isEmpty()) {
        finish(handlers);
        return;
    }
    for (const QString &UUID : UUIDs) {
        m_dispatcher.synchronizeWithStore({.databaseUUID = UUID,
                                           .databaseName = UUID,
                                           .store = Place,
                                           .place = localizedSyncString("direct connections")},
                                          m_location->createBlobStore(),
                                          [this, left, handlers](const auto & /*result*/) {
                                              if (--*left == 0) {
                                                  finish(handlers);
                                              }
                                          });
    }
}

void ServedStoreSynchronizer::finish(const QList<std::function<void()>> &handlers) {
    m_isSynchronizing = false;
    if (!m_waiting.isEmpty()) {
        synchronize();
    }
    for (const std::function<void()> &handler : handlers) {
        handler();
    }
}
