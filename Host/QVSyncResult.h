#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QMetaType>
#include <optional>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

class QObject;
class QVSyncLocation;

/// The result of the last job, a synchronization or a clean-up, of a database with a location. A
/// value.
///
/// This is an optional addition to QVSyncState. A host that has it gives its states the property
/// "lastResult" of the type std::optional<QVSyncResult>, with a NOTIFY signal; it is empty if no
/// job has ended yet, or after the location was edited because of a failure. The host changes it on
/// the main thread when a job ends, after `lastSynced`, and saves it by itself. A cancelled job has
/// no result. The property can be written: an empty result, which is saved with the state.
struct HOST_EXPORT QVSyncResult {
    /// The name of the property.
    static constexpr char Key[] = "lastResult";

    /// When the job ended.
    QDateTime date = {};
    /// What has failed, for the user: which database, with which location, why, and what to do
    /// next. Empty if the job has succeeded.
    std::optional<Error> error = {};
    /// Whether the job was a clean-up. A host that does not save this loads results as those of
    /// synchronizations.
    bool isCleanUp = false;
    /// The reason of the failure in a few words, such as "wrong password"; may be empty.
    QString summary = {};
    /// The number of changes of notes that the job has read from the location.
    qint64 received = 0;
    /// The number of changes of notes that the job has written to the location.
    qint64 sent = 0;
    /// The number of items that could not be synchronized although the job has succeeded.
    qint64 problems = 0;

    /// Compares all members, errors as Error does.
    bool operator==(const QVSyncResult &) const = default;

    /// Returns whether `state`, which must not be null, has results.
    static bool isOfferedBy(const QObject *state);
    /// Returns the result of `state`, which must not be null; empty if the host offers none.
    static std::optional<QVSyncResult> of(const QObject *state);
    /// Removes the result of `state`, which must not be null, if it is one of a failure. The change
    /// is saved with the state.
    static void forgetFailure(QObject *state);
    /// Returns what has failed with `location`, for the user, with details(), also if that only
    /// left some items of the database out, which is named `database`; empty if nothing did. Must
    /// be called on the main thread.
    std::optional<Error> failure(const QString &database, const QVSyncLocation &location) const;
    /// Returns the details of `error`, which occurred with `location` at `date`: its own, the
    /// address of the location, without a password, and the date.
    static QString details(const Error &error, const QVSyncLocation &location,
                           const QDateTime &date);
};

Q_DECLARE_METATYPE(QVSyncResult)
Q_DECLARE_METATYPE(std::optional<QVSyncResult>)
