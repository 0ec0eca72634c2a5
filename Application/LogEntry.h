#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QJsonObject>
#include <optional>

#include "Host/QVJobLog.h"

/// One entry of the log. A value.
struct LogEntry {
    /// When it happened; for a job, when it was started.
    QDateTime time;
    /// What happened, for the user; may be any text, also with line breaks.
    QString text;
    /// What has become of a job; empty for other events, which have none of the following.
    std::optional<QVJobReport::Outcome> outcome = {};
    /// The name of the database and the title of the location when the job ran; may be any texts.
    QString database = {};
    QString location = {};
    /// How long a job took, in milliseconds; -1 if the entry is about a part of it.
    qint64 duration = -1;
    /// The numbers of changes.
    qint64 received = 0;
    qint64 sent = 0;

    bool operator==(const LogEntry &) const = default;

    /// Returns the entry for `report`.
    static LogEntry of(const QVJobReport &report);
    /// Returns the entry as JSON, with texts cut to 4,000 characters.
    QJsonObject toJson() const;
    /// Returns the entry that toJson() has returned; empty if `object` is none, because the user
    /// may have edited the file, or a later version may have written it.
    static std::optional<LogEntry> fromJson(const QJsonObject &object);
};
