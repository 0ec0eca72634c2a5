#include "Engine/Plugin/DeletedDatabases.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <utility>

#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/DirectConnection/ServedDatabases.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/FailureLog.h"
#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/DeletedDatabase.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/TransactionName.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/EngineDispatcher.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/MainQueue.h"

DeletedDatabases::DeletedDatabases(const ProfileDatabase &profile, EngineNoteLibrary &library,
                                   EngineLocationsController &locations,
                                   EngineDispatcher &dispatcher)
    : m_profile(profile),
      m_library(library),
      m_locations(locations),
      m_dispatcher(dispatcher),
      m_logMover(profile) {
    connect(&library, &EngineNoteLibrary::databaseDeleted, this, &DeletedDatabases::didDelete);
    connect(&library, &EngineNoteLibrary::databaseRestored, this, &DeletedDatabases::didRestore);
    connect(&locations, &EngineLocationsController::locationInserted, this,
            &DeletedDatabases::didInsert);
}

Expected<void> DeletedDatabases::load(std::shared_ptr<ServedDatabases> served) {
    m_served = std::move(served);
    return DeletedDatabase::marked(m_profile).map([this](const QStringList &UUIDs) {
        for (const QString &UUID : UUIDs) {
            const auto states = m_locations.statesOf(UUID);
            for (const auto &state : states) {
                state->setEnabled(false);
            }
        }
    });
}

void DeletedDatabases::start() {
    const Expected<QStringList> UUIDs = DeletedDatabase::marked(m_profile);
    logFailureOf(UUIDs.map([](const auto &) {}));
    for (const QString &UUID : UUIDs.value_or(QStringList())) {
        forget(UUID);
    }
}

void DeletedDatabases::didDelete(const QString &UUID) {
    Deletion deletion{.enabledStates = m_locations.statesOf(UUID),
                      .wasServed = m_served->contain(UUID),
                      .number = ++m_lastNumber};
    deletion.enabledStates.removeIf([](const auto &state) { return !state->isEnabled(); });
    for (const auto &state : std::as_const(deletion.enabledStates)) {
        state->setEnabled(false);
    }
    m_deletions.insert(UUID, deletion);
    m_deleted.insert(UUID);
    // One that was imported again meanwhile can be restored again.
    m_erased.removeAll(UUID);
    if (deletion.wasServed) {
        logFailureOf(m_served->setServed(UUID, false));
    }
    m_dispatcher.cancelJobsOfDatabase(UUID);
    QTimer::singleShot(m_undoTime, this, [this, UUID, number = deletion.number] {
        if (m_deletions.value(UUID).number == number) {
            forget(UUID);
        }
    });
}

void DeletedDatabases::didRestore(const QString &UUID) {
    const Deletion deletion = m_deletions.take(UUID);
    m_deleted.remove(UUID);
    if (deletion.wasServed) {
        logFailureOf(m_served->setServed(UUID, true));
    }
    for (const auto &state : deletion.enabledStates) {
        state->setEnabled(true);
    }
    std::optional<Error> error;
    if (!m_locations.save(&error)) {
        logFailureOf(failure(error.value_or(Error())));
    }
}

void DeletedDatabases::didInsert(EngineSyncLocation &location) const {
    const auto states = location.engineStates();
    for (const auto &state : states) {
        const QString UUID = state->databaseUUID();
        // It may have been imported again.
        if (m_deleted.contains(UUID) && !m_library.databaseForUUID(UUID)) {
            location.removeState(UUID);
        }
    }
}

void DeletedDatabases::forget(const QString &UUID) {
    // The end of the process may have come before it was excluded.
    const Expected<void> forgotten =
        (m_served->contain(UUID) ? m_served->setServed(UUID, false) : Expected<void>())
            .and_then([&] {
                return m_library.giveUpDeleted(UUID,
                                               [&] { return m_locations.deleteStates(UUID); });
            });
    logFailureOf(forgotten);
    if (forgotten) {
        m_locations.forgetStates(UUID);
        m_deletions.remove(UUID);
        deleteServed(UUID);
        Q_EMIT databaseForgotten(UUID);
    }
}

void DeletedDatabases::deleteServed(const QString &UUID) {
    const QString store = DirectConnectionPackage::pathInProfile(m_profile.directory());
    ++m_servedDeletions;
    const auto run = [store, UUID, self = QPointer(this)] {
        const Expected<void> deleted = deleteServed(UUID, store);
        MainQueue::dispatchAsync([self, UUID, deleted] {
            if (self) {
                --self->m_servedDeletions;
                logFailureOf(deleted);
                // The next start tries again what has failed as long as the mark is not erased.
                if (deleted) {
                    self->erase(UUID);
                }
            }
        });
    };
    if (const Expected<void> started = m_threads.start(run); !started) {
        --m_servedDeletions;
        logFailureOf(started);
    }
}

void DeletedDatabases::erase(const QString &UUID) {
    // It may have been imported again meanwhile, and even deleted again.
    if (m_library.databaseForUUID(UUID) || m_deletions.contains(UUID)) {
        return;
    }
    m_erased.append(UUID);
    if (!std::exchange(m_isErasing, true)) {
        QTimer::singleShot(0, this, &DeletedDatabases::eraseSome);
    }
}

void DeletedDatabases::eraseSome() {
    if (m_erased.isEmpty()) {
        m_isErasing = false;
        return;
    }
    const Expected<bool> isErased = DeletedDatabase::eraseSome(m_profile, m_erased.first());
    logFailureOf(isErased.map([](bool) {}));
    if (!isErased || *isErased) {
        m_erased.removeFirst();
    }
    moveLog();
}

void DeletedDatabases::moveLog() {
    m_logMover.move([this](const Expected<void> &moved) {
        logFailureOf(moved);
        if (!moved) {
            // The next start goes on.
            m_erased.clear();
        }
        eraseSome();
    });
}

Expected<void> DeletedDatabases::deleteServed(const QString &UUID, const QString &store) {
    // A path contains it.
    if (!DatabaseRecord::isUUID(UUID)) {
        return {};
    }
    const QString record = store + u'/' + DatabaseRecord::path(UUID);
    const QString transactions = store + u'/' + TransactionName::folder(UUID);
    const auto notDeleted = [](const QString &path) {
        return engineError(EngineErrorCode::AccessDenied,
                           "“%1” belongs to a deleted database and cannot be deleted. "
                           "Velmora tries again when it starts. Check the permissions.",
                           path);
    };
    return FileManager::removeFile(record)
        .map_error([&](const Error &) { return notDeleted(record); })
        .and_then([&] {
            return FileManager::removeFolder(transactions).map_error([&](const Error &) {
                return notDeleted(transactions);
            });
        });
}
