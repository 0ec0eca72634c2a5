#include "Engine/Notes/HistoryPruning.h"

#include "Engine/Notes/NoteHistory.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"

namespace {

/// Half a day, so that versions that lag behind the clock after a pause catch up.
constexpr std::chrono::hours Interval(12);
/// Leaves the main thread to others between two steps.
constexpr std::chrono::milliseconds Pause(20);

void logPruningFailureOf(const Expected<void> &result) {
    if (!result) {
        NSApp()->logItemCmd(localizedSyncString("Earlier versions:"),
                            result.error().localizedDescription);
    }
}

}  // namespace

HistoryPruning::HistoryPruning(const ProfileDatabase &profile)
    : m_profile(profile), m_logMover(profile) {
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { prune(); });
}

void HistoryPruning::start() {
    m_timer.start(Pause);
}

void HistoryPruning::goOn() {
    m_isContinued = true;
    if (!m_isMoving) {
        m_timer.start(Pause);
    }
}

void HistoryPruning::prune() {
    const Expected<bool> pruned = advanceTime().and_then([this] { return pruneIfDue(); });
    logPruningFailureOf(pruned.map([](bool) {}));
    m_isContinued = pruned.value_or(false);
    if (m_isContinued) {
        moveLog();
    } else {
        m_timer.start(Interval);
    }
}

void HistoryPruning::moveLog() {
    m_isMoving = true;
    m_logMover.move([this](const Expected<void> &moved) {
        m_isMoving = false;
        logPruningFailureOf(moved);
        m_isContinued = moved.has_value();
        m_timer.start(m_isContinued ? std::chrono::milliseconds(Pause) : Interval);
    });
}

Expected<void> HistoryPruning::advanceTime() {
    if (m_isContinued) {
        return {};
    }
    return m_profile.write(
        [this] { return NoteHistory::advanceTime(m_profile, QDateTime::currentDateTime()); });
}

Expected<bool> HistoryPruning::pruneIfDue() const {
    const QDateTime now = QDateTime::currentDateTime();
    return NoteHistory::exceedsLimits(m_profile, now).and_then([&](bool isDue) -> Expected<bool> {
        if (!isDue) {
            return false;
        }
        return m_profile.write([&] { return NoteHistory::prune(m_profile, now); }).map([] {
            return true;
        });
    });
}
