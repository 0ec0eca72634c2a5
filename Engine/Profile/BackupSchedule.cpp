#include "Engine/Profile/BackupSchedule.h"

#include <QtCore/QPointer>

#include "Engine/Profile/ProfileBackups.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

/// Not at once, so that the start of the program is not slowed down.
constexpr std::chrono::seconds FirstDelay(5);
constexpr std::chrono::hours Interval(1);

/// For a disk that hangs.
constexpr std::chrono::milliseconds CancellationTimeout(1500);

}  // namespace

BackupSchedule::BackupSchedule() {
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        check();
        m_timer.start(Interval);
    });
}

BackupSchedule::~BackupSchedule() {
    *m_isCancelled = true;
    m_threads.waitForDone(CancellationTimeout);
}

void BackupSchedule::start(const ProfileDatabase &profile, const Inspection &inspect) {
    m_profile = &profile;
    m_inspect = inspect;
    m_timer.start(FirstDelay);
}

void BackupSchedule::check() {
    if (!m_profile || m_isRunning) {
        return;
    }
    const QString directory = m_profile->directory();
    const QDate today = QDate::currentDate();
    const Expected<bool> isDue =
        m_profile->checkFiles().and_then([&] { return ProfileBackups(directory).isDue(today); });
    if (!isDue) {
        report(failure(isDue.error()));
        return;
    }
    if (!*isDue) {
        return;
    }
    m_isRunning = true;
    const auto make = [directory, today, files = m_profile->files(), isCancelled = m_isCancelled,
                       inspect = m_inspect, self = QPointer(this)] {
        const Expected<void> result = ProfileBackups(directory).make(
            today, isCancelled.get(), [&] { return files.check(); },
            [&](const QString &path) { return inspect(path, *isCancelled); });
        MainQueue::dispatchAsync([self, result] {
            if (self) {
                // The folder may have been replaced since the backup got its name.
                self->report(result.and_then([&] { return self->m_profile->checkFiles(); }));
            }
        });
    };
    if (const Expected<void> started = m_threads.start(make); !started) {
        report(started);
    }
}

void BackupSchedule::report(const Expected<void> &result) {
    m_isRunning = false;
    const QString problem = result ? QString() : result.error().localizedDescription;
    if (!problem.isEmpty() && problem != m_reported) {
        NSApp()->logItemCmd(localizedSyncString("Backup:"), problem);
        NSApp()->presentError(result.error());
    }
    m_reported = problem;
    Q_EMIT ended(result ? std::nullopt : std::optional(result.error()));
}
