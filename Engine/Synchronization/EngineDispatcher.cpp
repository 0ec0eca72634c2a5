#include "Engine/Synchronization/EngineDispatcher.h"

#include <QtCore/QPointer>
#include <chrono>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/FailureLog.h"
#include "Engine/Locations/EngineLocationFormatter.h"
#include "Engine/Locations/EngineLocationsController.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Locations/FailureSummary.h"
#include "Engine/Locations/FailureText.h"
#include "Engine/Locations/ResultColumns.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/UnsentChanges.h"
#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

/// The minimum time between two announcements of the progress.
constexpr std::chrono::milliseconds ProgressInterval{100};
/// The number of problems of one job that are reported one by one.
constexpr qsizetype MostReported = 20;

QString successText(SyncJob::Kind kind) {
    return kind == SyncJob::Kind::CleanUp ? localizedSyncString("“%1” was cleaned up at “%2”.")
                                          : localizedSyncString("“%1” was synchronized with “%2”.");
}

QString activityText(SyncJob::Kind kind, bool isRunning) {
    if (kind == SyncJob::Kind::CleanUp) {
        return isRunning ? localizedSyncString("Cleaning up “%1” at “%2”…")
                         : localizedSyncString("Waiting to clean up “%1” at “%2”…");
    }
    return isRunning ? localizedSyncString("Synchronizing “%1” with “%2”…")
                     : localizedSyncString("Waiting to synchronize “%1” with “%2”…");
}

}  // namespace

EngineDispatcher::EngineDispatcher(const ProfileDatabase &profile, EngineNoteLibrary &library,
                                   const EngineLocationsController &locations)
    : m_profile(profile), m_library(library), m_locations(locations) {
    m_progressTimer.setSingleShot(true);
    m_progressTimer.setInterval(ProgressInterval);
    connect(&m_progressTimer, &QTimer::timeout, this, &EngineDispatcher::announceProgress);
}

EngineDispatcher::~EngineDispatcher() {
    for (const Entry &entry : std::as_const(m_running)) {
        entry.job->abandon();
    }
    m_threads.end();
}

void EngineDispatcher::cleanRemoteStoreWithSynchronizationState(
    const std::shared_ptr<QVSyncState> &state, std::function<void()> handler) {
    enqueue(SyncJob::Kind::CleanUp, state, [handler](const End &) { handler(); });
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states) {
    performSynchronizationsWithSynchronizationStates(states, [] {});
}

void EngineDispatcher::performSynchronizationsWithSynchronizationStates(
    const QVSyncStates &states, std::function<void()> handler) {
    synchronize(states, RemovalDecision::Later,
                [handler = std::move(handler)](const auto &) { handler(); });
}

void EngineDispatcher::synchronize(const QVSyncStates &states, RemovalDecision decision,
                                   std::function<void(const QList<RemovalQuestion> &)> handler) {
    if (states.isEmpty()) {
        postHandler([handler = std::move(handler)] { handler({}); });
        return;
    }
    const auto left = std::make_shared<qsizetype>(states.size());
    const auto decided = std::make_shared<QList<RemovalQuestion>>();
    for (const std::shared_ptr<QVSyncState> &state : states) {
        enqueue(
            SyncJob::Kind::Synchronization, state,
            [left, decided, handler](const End &end) {
                if (end.decided && end.result) {
                    decided->append(*end.decided);
                }
                if (--*left == 0) {
                    handler(*decided);
                }
            },
            decision);
    }
}

QString EngineDispatcher::activity() const {
    const Entry *first = firstActive();
    if (!first) {
        return {};
    }
    return activityText(first->job->kind(), first->started.isValid())
        .arg(nameOf(first->job->subject()), first->title);
}

QVSyncProgress EngineDispatcher::progress() const {
    const Entry *first = firstActive();
    if (!first) {
        return {.outcome = m_outcome};
    }
    QVSyncProgress progress = first->job->progress();
    progress.activity = activity();
    return progress;
}

void EngineDispatcher::stop() {
    cancelJobs([](const Entry &) { return true; });
}

Expected<bool> EngineDispatcher::hasUnsentChanges(const QVSyncState &state) const {
    const auto database = m_library.synchronizedDatabase(state.databaseUUID());
    const auto location = std::dynamic_pointer_cast<EngineSyncLocation>(state.destination());
    if (!database || !location) {
        return false;
    }
    const NoteLog &log = database->log();
    return UnsentChanges::exist(
        log, KnownTransactions(m_profile, location->identifier(), log.database()));
}

const EngineDispatcher::Entry *EngineDispatcher::firstActive() const {
    const auto first = std::find_if(m_running.begin(), m_running.end(),
                                    [](const Entry &entry) { return !entry.isCancelled; });
    if (first != m_running.end()) {
        return &*first;
    }
    for (const Entry &cancelled : m_running) {
        const auto waiting = m_waiting.constFind(cancelled.job->subject().store);
        if (waiting != m_waiting.constEnd() && !waiting->isEmpty()) {
            return &waiting->first();
        }
    }
    return nullptr;
}

void EngineDispatcher::announceActivity() {
    Q_EMIT activityChanged();
    if (!m_progressTimer.isActive()) {
        announceProgress();
    }
}

void EngineDispatcher::announceProgress() {
    for (const Entry &entry : std::as_const(m_running)) {
        entry.job->cancelIfStalled(m_stallLimit);
    }
    QVSyncProgress current = progress();
    if (current.phase != QVSyncProgress::Phase::Idle || current != m_announcedProgress) {
        m_progressTimer.start();
    }
    if (current != m_announcedProgress) {
        m_announcedProgress = std::move(current);
        Q_EMIT progressChanged();
    }
}

void EngineDispatcher::synchronizeWithStore(
    const StoreSession::Subject &subject, const std::shared_ptr<BlobStore> &store,
    std::function<void(const Expected<void> &result)> handler) {
    add({std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, m_profile, m_library, subject,
                                   store),
         store->place({}),
         nullptr,
         {[handler = std::move(handler)](const End &end) { handler(end.result); }}});
}

void EngineDispatcher::cancelJobsOfLocation(const QString &identifier) {
    m_asked.removeIf([&](const auto &asked) { return asked.value().store == identifier; });
    cancelJobs([&](const Entry &entry) { return entry.job->subject().store == identifier; });
}

void EngineDispatcher::cancelJobsOfDatabase(const QString &UUID) {
    m_asked.remove(UUID);
    cancelJobs([&](const Entry &entry) { return entry.job->subject().databaseUUID == UUID; });
}

void EngineDispatcher::cancelDisabledJobs() {
    cancelJobs([](const Entry &entry) { return entry.state && !entry.state->isEnabled(); });
}

void EngineDispatcher::cancelJobs(const std::function<bool(const Entry &)> &isCancelled) {
    bool hasChanged = false;
    for (Entry &entry : m_running) {
        if (!entry.isCancelled && isCancelled(entry)) {
            entry.isCancelled = true;
            entry.job->cancel();
            hasChanged = true;
        }
    }
    for (QList<Entry> &entries : m_waiting) {
        entries.removeIf([&](const Entry &entry) {
            const bool isRemoved = isCancelled(entry);
            hasChanged = hasChanged || isRemoved;
            for (const auto &handler : isRemoved ? entry.handlers : decltype(entry.handlers)()) {
                postHandler([handler] { handler({failure(operationCancelled())}); });
            }
            return isRemoved;
        });
    }
    if (hasChanged) {
        announceActivity();
    }
}

void EngineDispatcher::enqueue(SyncJob::Kind kind, const std::shared_ptr<QVSyncState> &state,
                               const Handler &handler, RemovalDecision decision) {
    const auto location =
        state ? std::dynamic_pointer_cast<EngineSyncLocation>(state->destination()) : nullptr;
    if (!location || !state->isEnabled()) {
        postHandler([handler] { handler({}); });
        return;
    }
    QList<Entry> &entries = m_waiting[location->identifier()];
    const auto waiting = std::find_if(entries.begin(), entries.end(), [&](const Entry &entry) {
        return entry.state == state && entry.job->kind() == kind;
    });
    if (waiting != entries.end()) {
        waiting->handlers.append(handler);
        waiting->decision = decision == RemovalDecision::Later ? waiting->decision : decision;
        return;
    }
    const auto database = m_library.synchronizedDatabase(state->databaseUUID());
    if (!database && kind == SyncJob::Kind::CleanUp) {
        QVJobLog::logMessage(
            localizedSyncString("“%1” could not be cleaned up because the database is not on this "
                                "computer. Import the database, then try again.")
                .arg(state->databaseName()));
        postHandler([handler] { handler({}); });
        return;
    }
    const QString title =
        EngineLocationFormatter(location->URL(), location->kind(), m_locations.syncLocations())
            .title();
    const StoreSession::Subject subject{state->databaseUUID(), state->databaseName(),
                                        location->identifier(), title};
    connect(state.get(), &QVSyncState::enabledChanged, this, &EngineDispatcher::cancelDisabledJobs,
            Qt::UniqueConnection);
    add({.job = std::make_shared<SyncJob>(kind, m_profile, m_library, subject,
                                          location->createBlobStore()),
         .title = title,
         .state = state,
         .handlers = {handler},
         .decision = decision});
}

void EngineDispatcher::postHandler(std::function<void()> handler) {
    MainQueue::dispatchAsync([self = QPointer(this), handler = std::move(handler)] {
        if (self) {
            handler();
        }
    });
}

void EngineDispatcher::add(const Entry &entry) {
    const QString store = entry.job->subject().store;
    m_waiting[store].append(entry);
    startNext(store);
}

void EngineDispatcher::startNext(const QString &store) {
    const bool isBusy = std::any_of(m_running.begin(), m_running.end(), [&](const Entry &entry) {
        return entry.job->subject().store == store;
    });
    QList<Entry> &entries = m_waiting[store];
    if (!isBusy && !entries.isEmpty()) {
        m_running.append(entries.takeFirst());
        m_outcome.clear();
        m_running.last().started = QDateTime::currentDateTime();
        const std::shared_ptr<SyncJob> job = m_running.last().job;
        job->start(m_threads, [this, job = job.get()] { ended(job); });
    }
    announceActivity();
}

void EngineDispatcher::ended(const SyncJob *job) {
    const auto entry = std::find_if(m_running.begin(), m_running.end(),
                                    [&](const Entry &each) { return each.job.get() == job; });
    const Entry done = *entry;
    m_running.erase(entry);
    const auto undecided = done.job->undecidedRemoval();
    if (std::optional<Entry> again =
            undecided ? decided(done, {undecided->UUIDs, done.decision}) : std::nullopt) {
        again->handlers = done.handlers;
        again->decided = questionAbout(done, *undecided);
        add(*again);
        return;
    }
    report(done);
    if (done.state) {
        rememberResult(done);
    }
    if (undecided) {
        askAboutRemoval(done, *undecided);
    }
    startNext(done.job->subject().store);
    for (const auto &handler : done.handlers) {
        handler({done.job->result(), done.decided});
    }
}

void EngineDispatcher::report(const Entry &entry) {
    const QString name = nameOf(entry.job->subject());
    const Problems &problems = entry.job->problems();
    const QList<Error> &kept = problems.kept();
    QVJobReport report{.outcome = QVJobReport::Outcome::Partial,
                       .database = name,
                       .location = entry.title,
                       .ended = QDateTime::currentDateTime()};
    for (const Error &problem : kept.first(std::min(kept.size(), MostReported))) {
        report.text =
            localizedSyncString("Some items of “%1” could not be synchronized with “%2”: %3")
                .arg(name, entry.title, problem.localizedDescription);
        QVJobLog::log(report);
    }
    if (const auto more = problems.count() - MostReported; more > 0) {
        report.text =
            localizedSyncCount("%1 more items of “%2” could not be synchronized with “%3”.",
                               "%1 more item of “%2” could not be synchronized with “%3”.", more)
                .arg(QString::number(more), name, entry.title);
        QVJobLog::log(report);
    }
    if (!entry.job->result() || entry.state) {
        reportEnd(entry, report);
    }
}

void EngineDispatcher::reportEnd(const Entry &entry, QVJobReport report) {
    using Outcome = QVJobReport::Outcome;
    report.started = entry.started;
    report.received = entry.job->received();
    report.sent = entry.job->sent();
    const Expected<void> &result = entry.job->result();
    if (result) {
        report.outcome = entry.job->problems().count() == 0 ? Outcome::Succeeded : Outcome::Partial;
        report.text = successText(entry.job->kind()).arg(report.database, report.location);
        m_outcome = entry.job->kind() == SyncJob::Kind::CleanUp ? report.text : QString();
    } else {
        report.outcome = isEngineError(result.error(), EngineErrorCode::Cancelled)
                             ? Outcome::Stopped
                             : Outcome::Failed;
        report.text = failureOf(entry);
    }
    QVJobLog::log(report);
}

void EngineDispatcher::askAboutRemoval(const Entry &entry, const StoreSession::Removal &removal) {
    const StoreSession::Subject &subject = entry.job->subject();
    const QList<Entry> waiting = m_waiting.value(subject.store);
    const bool isDecided = std::any_of(waiting.begin(), waiting.end(), [&](const Entry &each) {
        return each.isDecided && each.job->subject().databaseUUID == subject.databaseUUID;
    });
    QuestionPresenter *presenter = QuestionPresenter::ofApplication();
    if (!presenter || isDecided || m_asked.contains(subject.databaseUUID)) {
        return;
    }
    const quint64 number = ++m_lastNumber;
    m_asked.insert(subject.databaseUUID, {subject.store, number});
    presenter->askAboutRemoval(
        questionAbout(entry, removal),
        [self = QPointer(this), entry, UUIDs = removal.UUIDs, number](RemovalDecision decision) {
            const StoreSession::Subject &asked = entry.job->subject();
            // The location may have been removed meanwhile.
            if (!self || self->m_asked.value(asked.databaseUUID).number != number) {
                return;
            }
            self->m_asked.remove(asked.databaseUUID);
            if (decision == RemovalDecision::Keep) {
                self->presentGoneNotes(asked.databaseUUID, UUIDs);
            }
            std::optional<Entry> again = self->decided(entry, {UUIDs, decision});
            if (again && decision == RemovalDecision::Remove) {
                again->handlers.append([self, UUID = asked.databaseUUID, UUIDs](const End &end) {
                    if (end.result && self) {
                        self->presentRemainingNotes(UUID, UUIDs);
                    }
                });
            }
            if (again) {
                self->add(*again);
            }
        });
}

RemovalQuestion EngineDispatcher::questionAbout(const Entry &entry,
                                                const StoreSession::Removal &removal) const {
    const StoreSession::Subject &subject = entry.job->subject();
    return {nameOf(subject), subject.place, removal.titles, removal.total};
}

std::optional<EngineDispatcher::Entry> EngineDispatcher::decided(
    const Entry &entry, const SyncSession::Decision &decision) const {
    if (decision.decision == RemovalDecision::Later || (entry.state && !entry.state->isEnabled())) {
        return {};
    }
    const auto job = std::make_shared<SyncJob>(SyncJob::Kind::Synchronization, m_profile, m_library,
                                               entry.job->subject(), entry.job->store(), decision);
    return Entry{
        .job = job, .title = entry.title, .state = entry.state, .handlers = {}, .isDecided = true};
}

void EngineDispatcher::presentGoneNotes(const QString &databaseUUID,
                                        const QStringList &notes) const {
    const Expected<qsizetype> present = countOf(databaseUUID, notes);
    if (!present) {
        NSApp()->presentError(present.error());
    } else if (*present < notes.size()) {
        const auto database = m_library.synchronizedDatabase(databaseUUID);
        NSApp()->presentError(engineError(
            EngineErrorCode::RemovalUndecided,
            "Notes of “%1” that you wanted to keep were removed before you decided, for example by "
            "“velmora sync --removals remove”. To restore them, choose “Deleted Notes” in the menu "
            "“Edit”.",
            database ? database->name() : QString()));
    }
}

void EngineDispatcher::presentRemainingNotes(const QString &databaseUUID,
                                             const QStringList &notes) const {
    const Expected<qsizetype> present = countOf(databaseUUID, notes);
    if (!present) {
        NSApp()->presentError(present.error());
    } else if (*present > 0) {
        const auto database = m_library.synchronizedDatabase(databaseUUID);
        NSApp()->presentError(engineError(
            EngineErrorCode::RemovalUndecided,
            "Notes of “%1” that you wanted to remove were kept or edited before you decided, for "
            "example by “velmora sync --removals keep”. If you do not need them, delete them.",
            database ? database->name() : QString()));
    }
}

Expected<qsizetype> EngineDispatcher::countOf(const QString &databaseUUID,
                                              const QStringList &notes) const {
    const auto database = m_library.synchronizedDatabase(databaseUUID);
    return database ? database->log().countOf(notes) : 0;
}

QString EngineDispatcher::nameOf(const StoreSession::Subject &subject) const {
    const auto database = m_library.synchronizedDatabase(subject.databaseUUID);
    return database ? database->name() : subject.databaseName;
}

void EngineDispatcher::rememberResult(const Entry &entry) {
    const Expected<void> &result = entry.job->result();
    if (!result && isEngineError(result.error(), EngineErrorCode::Cancelled)) {
        return;
    }
    auto &state = dynamic_cast<EngineSyncState &>(*entry.state);
    const auto database = m_library.synchronizedDatabase(state.databaseUUID());
    const QDateTime now = QDateTime::currentDateTime();
    if (result && entry.job->kind() == SyncJob::Kind::Synchronization) {
        // The name of an inbox stays on its computer.
        if (database && !database->isInbox()) {
            state.setDatabaseName(database->name());
        }
        state.setLastSynced(now);
    }
    state.setLastResult(resultOf(entry, now));
    saveResult(state);
}

QVSyncResult EngineDispatcher::resultOf(const Entry &entry, const QDateTime &date) const {
    QVSyncResult result{.date = date,
                        .error = {},
                        .isCleanUp = entry.job->kind() == SyncJob::Kind::CleanUp,
                        .summary = {},
                        .received = entry.job->received(),
                        .sent = entry.job->sent(),
                        .problems = entry.job->problems().count()};
    if (const Expected<void> &ended = entry.job->result(); !ended) {
        result.error = ended.error();
        result.error->localizedDescription = failureOf(entry);
        result.summary = FailureSummary::of(ended.error());
    }
    return result;
}

QString EngineDispatcher::failureOf(const Entry &entry) const {
    return FailureText::of(entry.job->kind() == SyncJob::Kind::CleanUp,
                           nameOf(entry.job->subject()), entry.title,
                           entry.job->result().error().localizedDescription);
}

void EngineDispatcher::saveResult(const EngineSyncState &state) {
    const auto location = std::dynamic_pointer_cast<EngineSyncLocation>(state.destination());
    if (!location) {
        return;
    }
    // Only these columns: other changes of the state are saved when the user saves them.
    const QVariant synchronized =
        state.lastSynced().isValid() ? state.lastSynced().toMSecsSinceEpoch() : QVariant();
    logFailureOf(m_profile.run(
        QStringLiteral("UPDATE states SET last_synced = ?, database_name = ?, (%1) = (%2)"
                       " WHERE location_uuid = ? AND database_uuid = ?")
            .arg(ResultColumns::Names, ResultColumns::Placeholders),
        QVariantList{synchronized, ProfileDatabase::text(state.databaseName())} +
            ResultColumns::values(state.lastResult()) +
            QVariantList{location->identifier(), state.databaseUUID()}));
}
