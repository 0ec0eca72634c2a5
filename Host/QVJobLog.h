#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <optional>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

/// What has become of a job, a synchronization or a clean-up, or of a part of it. A value.
struct QVJobReport {
    /// How the job, or the part of it, has ended.
    enum class Outcome {
        /// Without an error.
        Succeeded,
        /// Some items could not be synchronized.
        Partial,
        /// With an error.
        Failed,
        /// The job was cancelled.
        Stopped,
    };

    /// See Outcome.
    Outcome outcome = Outcome::Succeeded;
    /// The name of the database.
    QString database;
    /// The title of the location.
    QString location;
    /// When the job was started; invalid if the report is about a part of it.
    QDateTime started = {};
    /// When it ended.
    QDateTime ended = {};
    /// The number of changes that were read from the location.
    qint64 received = 0;
    /// The number of changes that were written to the location.
    qint64 sent = 0;
    /// What happened, as complete sentences for the user.
    QString text = {};
};

/// A log of jobs.
///
/// This is an optional addition to QVApplication: the application object of an application that has
/// it is also a QVJobLog, which receives the reports of the jobs instead of
/// QVApplication::logItemCmd. Must be used on the main thread.
class HOST_EXPORT QVJobLog {
public:
    /// The signature of the function that shows the log to the user, and returns at once. It is an
    /// optional addition to the application object of Qt, which must be able to invoke it.
    static constexpr char ShowFunction[] = "showLog()";
    /// The title of the messages about synchronizations in the log of the application.
    static inline const QString MessageTitle = QStringLiteral("Sync:");

    virtual ~QVJobLog();

    /// Appends `report` to the log that the user can open.
    virtual void logJob(const QVJobReport &report) = 0;

    /// Passes `report` to the application object, or its text if that keeps no log of jobs. NSApp()
    /// must not be null, here and in logMessage().
    static void log(const QVJobReport &report);
    /// Passes `text`, complete sentences for the user about synchronizations that belong to no job,
    /// to QVApplication::logItemCmd under MessageTitle.
    static void logMessage(const QString &text);
    /// Returns the next step “Show Log”; empty if the application has no ShowFunction.
    static std::optional<RecoveryOption> showOption();
};
