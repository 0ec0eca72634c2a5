#include "Engine/Plugin/ProfileVerification.h"

#include <QtCore/QEventLoop>
#include <system_error>
#include <thread>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/DerivedTables.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/LostOperations.h"
#include "Engine/Notes/NoteInspection.h"
#include "Engine/Plugin/EngineSyncPlugin.h"
#include "Engine/Plugin/ServedStoreSynchronizer.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileInspection.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Engine/Synchronization/VerificationSession.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

/// Calls `work` on a thread that may block, and runs the event loop meanwhile. Calls it here if the
/// system cannot create a thread.
Expected<void> onThread(const std::function<Expected<void>()> &work) {
    Expected<void> result;
    QEventLoop loop;
    std::thread thread;
    try {
        thread = std::thread([&] {
            result = work();
            MainQueue::dispatchAsync([&] { loop.quit(); });
        });
    } catch (const std::system_error &) {
        return work();
    }
    loop.exec();
    thread.join();
    return result;
}

/// Adds the number of problems that were not kept to `sentences`.
void addNumberOfOthers(const Problems &problems, QStringList &sentences) {
    if (const qint64 others = problems.count() - problems.kept().size(); others > 0) {
        sentences.append(
            localizedSyncString("More of these, which are not listed: %1.").arg(others));
    }
}

}  // namespace

ProfileVerification::ProfileVerification(const ProfileDatabase &profile, EngineNoteLibrary &library,
                                         const EngineSyncPlugin &plugin, QString served)
    : m_profile(profile), m_library(library), m_plugin(plugin), m_served(std::move(served)) {}

VerificationReport ProfileVerification::run(VerificationMode mode) {
    m_mode = mode;
    m_report = {};
    m_report.parts.append(verifyProfile());
    const Expected<QStringList> repairs =
        m_mode == VerificationMode::Repair ? repairDerived() : QStringList();
    const auto locations = m_plugin.locationsController()->syncLocations();
    for (const auto &location : locations) {
        verifyLocation(dynamic_cast<EngineSyncLocation &>(*location));
    }
    verifyServedStore();
    if (m_mode == VerificationMode::Repair) {
        Part &part = m_report.parts.first() = verifyProfile();
        part.repairs.append(repairs.value_or(QStringList()));
        if (!repairs) {
            part.outcome = VerificationReport::Outcome::Problems;
            part.problems.append(repairs.error().localizedDescription);
        }
    }
    return m_report;
}

VerificationReport::Part ProfileVerification::verifyProfile() const {
    Part part{.name = localizedSyncString("Profile")};
    const Expected<QStringList> problems = profileProblems();
    const Expected<QString> extent = profileExtent();
    const bool isDamaged = problems && !problems->isEmpty();
    if (m_profile.hasRebuiltIndexes()) {
        part.repairs.append(
            localizedSyncString("An index of the profile was damaged and was rebuilt. If this "
                                "happens again, check the disk."));
    }
    if (isDamaged) {
        part.outcome = VerificationReport::Outcome::Problems;
        part.problems = *problems;
    } else if (!problems || !extent) {
        part.outcome = VerificationReport::Outcome::NotChecked;
        part.problems.append((problems ? extent.error() : problems.error()).localizedDescription);
        return part;
    }
    part.extent = extent.value_or(QString());
    return part;
}

Expected<QStringList> ProfileVerification::profileProblems() const {
    const Findings integrity = integrityProblems();
    QStringList problems = integrity.problems;
    Expected<void> done = integrity.completed;
    const auto add = [&](const QStringList &found) { problems += found; };
    const auto databases = m_library.knownDatabases();
    for (const auto &database : databases) {
        auto &checked = static_cast<EngineDatabase &>(*database);
        done = done.and_then([&] { return damagedNotes(checked).map(add); })
                   .and_then([&] { return lostNotes(checked).map(add); })
                   .and_then([&] { return derivedProblems(checked).map(add); });
    }
    if (!done && problems.isEmpty()) {
        return failure(done.error());
    }
    if (!done) {
        problems.append(done.error().localizedDescription);
    }
    return problems;
}

ProfileVerification::Findings ProfileVerification::integrityProblems() const {
    Findings found;
    bool isUnreadable = false;
    const auto check = [&](const char *pragma) {
        return m_profile.read(QLatin1StringView(pragma), {}, [&](const QSqlQuery &row) {
            const QString text = row.value(0).toString();
            if (ProfileInspection::isInputOutputError(text)) {
                isUnreadable = true;
            } else if (text != QStringLiteral("ok")) {
                found.problems.append(
                    localizedSyncString("The database of the profile is damaged (%1). Restore it "
                                        "from a backup.")
                        .arg(text));
            }
        });
    };
    found.completed = check("PRAGMA integrity_check")
                          .and_then([&] { return check("PRAGMA foreign_key_check"); })
                          .and_then([&]() -> Expected<void> {
                              return isUnreadable
                                         ? failure(ProfileInspection::unreadable(m_profile.path()))
                                         : Expected<void>();
                          });
    // What SQLite misses then may be on the page that the disk does not return.
    if (isUnreadable) {
        found.problems.clear();
    }
    return found;
}

Expected<QStringList> ProfileVerification::damagedNotes(EngineDatabase &database) const {
    return NoteInspection::damagedOperations(m_profile, database.log().database())
        .map([&](const QList<NoteInspection::DamagedOperation> &damaged) {
            database.addDamaged(damaged);
            if (damaged.isEmpty()) {
                return QStringList();
            }
            const QString text = m_mode == VerificationMode::Repair
                                     ? localizedSyncString(
                                           "Damaged notes in the database “%1” that no location "
                                           "could restore: %2. Check their texts, edit them and "
                                           "synchronize, or restore a backup of the profile.")
                                     : localizedSyncString(
                                           "Damaged notes in the database “%1”: %2. “velmora "
                                           "verify --repair” reads them again from the locations. "
                                           "If no location has them, check their texts and edit "
                                           "them.");
            return QStringList(
                text.arg(database.name(), NoteInspection::titles(damaged, database.name())));
        });
}

Expected<QStringList> ProfileVerification::lostNotes(const EngineDatabase &database) const {
    return LostOperations::all(m_profile, database.log().database())
        .map([&](const QSet<OperationId> &lost) {
            if (lost.isEmpty()) {
                return QStringList();
            }
            const QString text = m_mode == VerificationMode::Repair
                                     ? localizedSyncString(
                                           "Changes of notes in the database “%1” that this "
                                           "computer has lost and that no location could "
                                           "restore: %2. Synchronize on the other computers, "
                                           "then here, or restore a backup of the profile.")
                                     : localizedSyncString(
                                           "Changes of notes in the database “%1” that this "
                                           "computer has lost: %2. “velmora verify --repair” "
                                           "reads them again from the locations. If no "
                                           "location has them, synchronize on the other "
                                           "computers, then here, or restore a backup of the "
                                           "profile.");
            return QStringList(text.arg(database.name()).arg(lost.size()));
        });
}

Expected<QStringList> ProfileVerification::derivedProblems(const EngineDatabase &database) const {
    return DerivedTables::check(m_profile, database.log().database())
        .map([&](const DerivedTables::Faults &faults) {
            QStringList problems;
            if (!faults.stores.isEmpty()) {
                problems.append(
                    localizedSyncString("The list of unsent changes of the database “%1” is wrong. "
                                        "“velmora verify --repair” compares everything and sends "
                                        "what the list lacks.")
                        .arg(database.name()));
            }
            if (faults.isCountWrong) {
                problems.append(
                    localizedSyncString("The recorded number of conflicts in the database “%1” is "
                                        "wrong. “velmora verify --repair” counts them again.")
                        .arg(database.name()));
            }
            return problems;
        });
}

Expected<QStringList> ProfileVerification::repairDerived() const {
    QStringList repairs;
    const auto databases = m_library.knownDatabases();
    for (const auto &database : databases) {
        const qint64 id = static_cast<EngineDatabase &>(*database).log().database();
        const Expected<DerivedTables::Faults> faults = DerivedTables::check(m_profile, id);
        if (!faults) {
            return failure(faults.error());
        }
        if (faults->isEmpty()) {
            continue;
        }
        const Expected<void> repaired =
            m_profile.write([&] { return DerivedTables::repair(m_profile, id, *faults); });
        if (!repaired) {
            return failure(repaired.error());
        }
        if (!faults->stores.isEmpty()) {
            repairs.append(
                localizedSyncString("The list of unsent changes of the database “%1” was "
                                    "wrong. Everything is compared again.")
                    .arg(database->name()));
        }
        if (faults->isCountWrong) {
            repairs.append(localizedSyncString("The recorded number of conflicts in the database "
                                               "“%1” was wrong. They were counted again.")
                               .arg(database->name()));
        }
    }
    return repairs;
}

Expected<QString> ProfileVerification::profileExtent() const {
    const auto databases = m_library.knownDatabases();
    qsizetype count = 0;
    for (const auto &database : databases) {
        const Expected<QList<Note>> notes = database->notes();
        if (!notes) {
            return failure(notes.error());
        }
        count += notes->size();
    }
    return localizedSyncString("databases: %1, notes: %2").arg(databases.size()).arg(count);
}

void ProfileVerification::verifyLocation(EngineSyncLocation &location) {
    const QString title = EngineLocationFormatter(location.URL(), location.kind(),
                                                  m_plugin.locationsController()->syncLocations())
                              .title();
    const QVSyncStates states = location.synchronizationStates();
    for (const auto &state : states) {
        if (state->isEnabled()) {
            verifyStore(
                {.databaseUUID = state->databaseUUID(),
                 .databaseName = state->databaseName(),
                 .store = location.identifier(),
                 .place = title},
                title, *location.createBlobStore(),
                state->lastSynced().isValid() ? History::Synchronized : History::NeverSynchronized);
        }
    }
}

void ProfileVerification::verifyServedStore() {
    const Expected<bool> isThere = FileManager::exists(m_served);
    if (isThere && !*isThere) {
        return;
    }
    const QString title = localizedSyncString("Direct Connection");
    const auto location = m_plugin.newLocation(Url::fileURL(m_served));
    Expected<QStringList> names;
    const Expected<void> listed = isThere.and_then([&](bool /*isThere*/) {
        return onThread([&] {
            names = location->createBlobStore()->list(SyncStoreLayout::TransactionsFolder,
                                                      EngineFuture());
            return names ? Expected<void>() : failure(names.error());
        });
    });
    if (!listed) {
        m_report.parts.append({.name = title,
                               .outcome = VerificationReport::Outcome::NotChecked,
                               .problems = {listed.error().localizedDescription}});
        return;
    }
    names->removeIf([](const QString &name) { return !DatabaseRecord::isUUID(name); });
    for (const QString &UUID : std::as_const(*names)) {
        const auto database = m_library.synchronizedDatabase(UUID);
        verifyStore({.databaseUUID = UUID,
                     .databaseName = database ? database->name() : UUID,
                     .store = ServedStoreSynchronizer::Place,
                     .place = title},
                    title, *location->createBlobStore(), History::Synchronized);
    }
}

void ProfileVerification::verifyStore(const StoreSession::Subject &subject, const QString &title,
                                      BlobStore &store, History history) {
    using Outcome = VerificationReport::Outcome;
    Part part{.name = localizedSyncString("“%1” at “%2”").arg(subject.databaseName, title)};
    Expected<void> result;
    if (m_mode == VerificationMode::Repair) {
        SyncSession repair(m_profile, m_library, subject, RecordVerification::Extent::All);
        result = onThread([&] { return store.open(EngineFuture()); }).and_then([&] {
            return runSession(repair, store);
        });
        for (const Error &problem : repair.problems().kept()) {
            const bool isRepaired = isEngineError(problem, EngineErrorCode::RecordRepaired);
            (isRepaired ? part.repairs : part.problems).append(problem.localizedDescription);
        }
        addNumberOfOthers(repair.problems(), part.repairs);
    }
    VerificationSession session(m_profile, m_library, subject);
    result = result.and_then([&] { return runSession(session, store); });
    for (const Error &problem : session.problems().kept()) {
        part.problems.append(problem.localizedDescription);
    }
    addNumberOfOthers(session.problems(), part.problems);
    if (session.isUnused() && history == History::Synchronized) {
        part.problems.append(
            localizedSyncString("The location no longer contains the database. Synchronize to send "
                                "everything again."));
    }
    part.extent = session.isUnused() && history == History::NeverSynchronized
                      ? localizedSyncString("was never synchronized")
                      : localizedSyncString("records: %1, moved aside: %2")
                            .arg(session.recordCount())
                            .arg(session.setAsideCount());
    part.outcome = part.problems.isEmpty() ? Outcome::Sound : Outcome::Problems;
    if (!result) {
        part.problems.append(result.error().localizedDescription);
        part.outcome = part.outcome == Outcome::Sound ? Outcome::NotChecked : part.outcome;
    }
    part.problems.removeDuplicates();
    m_report.parts.append(part);
}

Expected<void> ProfileVerification::runSession(StoreSession &session, BlobStore &store) {
    const EngineFuture future;
    Expected<void> result;
    while (result && !session.isDone()) {
        result = onThread([&] { return session.accessStore(store, future); }).and_then([&] {
            return session.accessProfile();
        });
    }
    return result;
}
