#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>

#include "Host/HostExport.h"

class QObject;

/// What a dispatcher is doing, and how far it is. A value.
///
/// This is an optional addition to QVSyncDispatcher. A host that has it gives its dispatcher
/// - the property "progress" of the type QVSyncProgress, with a NOTIFY signal that is emitted on
///   the main thread, at most about ten times per second, and once more when nothing runs any more;
/// - the invokable function "stop()", which cancels all jobs, also those that wait. The dispatcher
///   is idle when it returns, and the handlers of the jobs are called later.
struct HOST_EXPORT QVSyncProgress {
    /// The name of the property.
    static constexpr char Key[] = "progress";

    /// The part of a job that is running.
    enum class Phase {
        /// No job is running.
        Idle,
        /// Connects to the location and compares what it contains. The extent is not known.
        Preparing,
        /// Reads records from the location.
        Reading,
        /// Adds the contents of records to the database.
        Merging,
        /// Writes changes to the location.
        Writing,
        /// Removes from the location what is not needed any more.
        Removing,
    };

    /// What is being done.
    Phase phase = Phase::Idle;
    /// The same text as QVSyncDispatcher::activity().
    QString activity = {};
    /// The number of records or changes that this phase has done, of `total`.
    qint64 done = 0;
    /// The number that this phase will do; 0, as `done` is, if the extent is not known.
    qint64 total = 0;
    /// While the dispatcher is idle: what the job that ended last has done, if the user has asked
    /// for it and it is shown nowhere else, such as a clean-up that has succeeded. Otherwise empty.
    QString outcome = {};

    /// Compares all members.
    bool operator==(const QVSyncProgress &) const = default;

    /// Returns the progress of `dispatcher`, which must not be null; that of an idle dispatcher if
    /// the host offers none.
    static QVSyncProgress of(const QObject *dispatcher);
    /// Returns whether the host of `dispatcher`, which must not be null, offers to stop its jobs.
    static bool canStop(const QObject *dispatcher);
    /// Cancels all jobs of `dispatcher`, which must not be null. Has no effect if the host does not
    /// offer that. Must be called on the main thread.
    static void stop(QObject *dispatcher);
};

Q_DECLARE_METATYPE(QVSyncProgress)
