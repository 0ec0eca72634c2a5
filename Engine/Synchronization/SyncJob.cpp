#include "Engine/Synchronization/SyncJob.h"

#include <algorithm>
#include <utility>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/ParallelCalls.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/RecordTiers.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

/// The number of merges that follow one synchronization at most. Each merges some of the small
/// records; the next synchronizations of the location wait for them.
constexpr int MostMerges = 16;

}  // namespace

SyncJob::SyncJob(Kind kind, const ProfileDatabase &profile, EngineNoteLibrary &library,
                 const StoreSession::Subject &subject, std::shared_ptr<BlobStore> store,
                 const SyncSession::Decision &decision)
    : m_kind(kind),
      m_profile(profile),
      m_library(library),
      m_subject(subject),
      m_store(std::move(store)) {
    auto synchronization = std::make_shared<SyncSession>(profile, library, subject);
    synchronization->setDecision(decision);
    m_synchronization = synchronization.get();
    m_sessions.push_back(std::move(synchronization));
    if (kind == Kind::CleanUp) {
        m_sessions.push_back(std::make_shared<CleanSession>(profile, library, subject));
    }
}

void SyncJob::start(WorkerThreads &threads, std::function<void()> handler) {
    m_threads = &threads;
    m_handler = std::move(handler);
    m_session = nextSession();
    runOnThread([this] { return begin(); });
}

Expected<void> SyncJob::begin() {
    Expected<void> opened;
    Expected<void> begun;
    const int atOnce = m_store->operationsAtOnce();
    ParallelCalls::run(2, atOnce, [&](qsizetype number) {
        if (number == 0) {
            opened = m_store->open(*m_future);
        } else if (atOnce > 1 || opened) {
            begun = m_session->accessStore(*m_store, *m_future);
        }
    });
    return opened.and_then([&] { return begun; });
}

void SyncJob::cancel() {
    m_future->cancel();
    interrupt();
}

void SyncJob::interrupt() {
    for (const std::shared_ptr<StoreSession> &session : m_sessions) {
        session->interrupt();
    }
}

void SyncJob::cancelIfStalled(std::chrono::milliseconds limit) {
    QVSyncProgress current = progress();
    if (!m_timeOfProgress.isValid() || current != m_seenProgress) {
        m_seenProgress = std::move(current);
        m_timeOfProgress.start();
    } else if (m_timeOfProgress.hasExpired(limit.count())) {
        m_future->cancelOverdue();
        interrupt();
    }
}

void SyncJob::abandon() {
    m_handler = nullptr;
    cancel();
    for (const std::shared_ptr<StoreSession> &session : m_sessions) {
        session->abandon();
    }
}

QVSyncProgress SyncJob::progress() const {
    if (!m_session) {
        return {.phase = QVSyncProgress::Phase::Preparing, .activity = {}};
    }
    const SessionProgress &progress = std::as_const(*m_session).progress();
    return {.phase = progress.phase(),
            .activity = {},
            .done = progress.done(),
            .total = progress.total()};
}

void SyncJob::runOnThread(const std::function<Expected<void>()> &work) {
    const auto finish = [weakJob = weak_from_this()](const Expected<void> &result) {
        MainQueue::dispatchAsync([weakJob, result] {
            if (const std::shared_ptr<SyncJob> living = weakJob.lock()) {
                living->finishStep(result);
            }
        });
    };
    const Expected<void> started =
        m_threads->start([job = shared_from_this(), work, finish] { finish(work()); });
    if (!started) {
        finish(started);
    }
}

void SyncJob::finishStep(const Expected<void> &result) {
    if (!m_handler) {
        return;
    }
    m_result = explained(result.and_then([this] { return accessProfile(); }).and_then([this] {
        return chooseSession();
    }));
    if (!m_result && m_merge) {
        if (!isEngineError(m_result.error(), EngineErrorCode::Cancelled)) {
            m_problems.add(compactionFailed(m_result.error()));
        }
        m_result = {};
        end();
        return;
    }
    continueJob();
}

Expected<void> SyncJob::explained(const Expected<void> &result) const {
    const bool isCancelled = !result && isEngineError(result.error(), EngineErrorCode::Cancelled);
    return isCancelled && m_future->isOverdue() ? failure(tookTooLong(m_subject.place)) : result;
}

Expected<void> SyncJob::accessProfile() {
    if (!m_session) {
        return {};
    }
    // The user may have deleted the database: a cancelled job must not import it again.
    if (m_future->isCancelled() && !m_library.synchronizedDatabase(m_subject.databaseUUID)) {
        return failure(operationCancelled());
    }
    return m_session->accessProfile();
}

Error SyncJob::compactionFailed(const Error &reason) const {
    Error error = reason;
    error.localizedDescription =
        localizedSyncString(
            "Everything was synchronized, but the records at “%1” could not be "
            "merged: %2")
            .arg(m_subject.place, reason.localizedDescription);
    return error;
}

StoreSession *SyncJob::nextSession() {
    const auto next =
        std::find_if(m_sessions.begin(), m_sessions.end(),
                     [](const std::shared_ptr<StoreSession> &each) { return !each->isDone(); });
    if (next != m_sessions.end()) {
        return next->get();
    }
    if (m_kind != Kind::Synchronization || !isMergeDue()) {
        return nullptr;
    }
    ++m_merges;
    // A large record may supersede much of others, and so may all that was merged since.
    const bool isLarge = m_synchronization->isMergeDue() ||
                         std::any_of(m_sessions.begin(), m_sessions.end(), [](const auto &session) {
                             return session->largestTransaction() >= RecordTiers::LargeSize;
                         });
    const auto merge = std::make_shared<CleanSession>(
        m_profile, m_library, m_subject,
        isLarge ? CleanSession::Extent::FullTiersAndLarge : CleanSession::Extent::FullTiers);
    m_merge = merge.get();
    m_sessions.push_back(merge);
    return m_merge;
}

bool SyncJob::isMergeDue() const {
    if (m_merge) {
        return m_merge->removed() > 0 && m_merges < MostMerges;
    }
    return m_synchronization->largestTransaction() > 0 || m_synchronization->isMergeDue();
}

Expected<void> SyncJob::chooseSession() {
    m_session = nextSession();
    const bool isStopped = m_session && m_future->isCancelled() && !m_session->isRecording();
    return isStopped ? failure(operationCancelled()) : Expected<void>();
}

void SyncJob::continueJob() {
    if (!m_result || !m_session) {
        end();
        return;
    }
    runOnThread([this] { return m_session->accessStore(*m_store, *m_future); });
}

void SyncJob::end() {
    for (const std::shared_ptr<StoreSession> &session : m_sessions) {
        m_problems.add(session->problems());
    }
    m_received = m_sessions.front()->received();
    m_sent = m_sessions.front()->sent();
    m_undecidedRemoval = m_sessions.front()->undecidedRemoval();
    m_session = nullptr;
    m_synchronization = nullptr;
    m_merge = nullptr;
    // Releasing what they have read can take long. Without a thread, it happens here.
    static_cast<void>(m_threads->start(
        [sessions = std::exchange(m_sessions, {})]() mutable { sessions.clear(); }));
    m_future->finish();
    // The handler may own the last reference to this job.
    std::exchange(m_handler, nullptr)();
}
