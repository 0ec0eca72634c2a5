#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <atomic>
#include <memory>

#include "Engine/Foundation/WorkerThreads.h"
#include "Platform/Foundation/Expected.h"

class ProfileDatabase;

/// Makes a backup of the open profile on each day, on a thread of its own. Failures are presented
/// to the user and added to the application's log, each once until a backup succeeds. Must be used
/// on the main thread.
class BackupSchedule : public QObject {
    Q_OBJECT
public:
    /// See ProfileBackups::Inspection. Called on the thread of the schedule; fails soon after
    /// `isCancelled` has become true.
    using Inspection =
        std::function<Expected<QString>(const QString &path, const std::atomic_bool &isCancelled)>;

    /// Does nothing until start() is called.
    BackupSchedule();
    /// Cancels a running backup, of which nothing is left, and waits for its end, for at most two
    /// seconds if the disk hangs.
    ~BackupSchedule() override;

    /// Makes a backup of the open `profile` soon, if there is none of this day, and then on each
    /// day. A failed backup is tried again after an hour. Nothing is written once the folder of the
    /// profile was replaced. Must be called once. `profile` is not owned and must outlive this
    /// object. The first check follows after some seconds, and then one each hour, so a day that
    /// begins while the program runs is noticed within an hour.
    void start(const ProfileDatabase &profile, const Inspection &inspect);
    /// Makes a backup in the background if one is due and none is being made. Has no effect before
    /// start().
    void check();

Q_SIGNALS:
    /// Emitted when an attempt has ended; `error` is null if a backup was made. Also emitted if it
    /// cannot be determined whether a backup is due; not if none is.
    void ended(const std::optional<Error> &error);

private:
    void report(const Expected<void> &result);

    /// Null before start().
    const ProfileDatabase *m_profile = nullptr;
    Inspection m_inspect;
    QTimer m_timer;
    WorkerThreads m_threads;
    bool m_isRunning = false;
    const std::shared_ptr<std::atomic_bool> m_isCancelled = std::make_shared<std::atomic_bool>();
    /// The failure that was reported last; empty after a success.
    QString m_reported;
};
