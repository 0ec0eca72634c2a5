#include "Engine/Notes/NoteHistory.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Host/SyncStrings.h"

namespace {

const QString DaysKey = QStringLiteral("historyDays");
const QString MegabytesKey = QStringLiteral("historyMegabytes");
/// The time up to which the versions have aged, in milliseconds.
const QString TimeKey = QStringLiteral("historyTime");
constexpr qint64 Megabyte = 1LL << 20;
/// Days or megabytes that no profile reaches.
constexpr int Unlimited = 1'000'000;
/// What a row takes besides its texts, roughly.
constexpr int BytesOfRow = 200;
/// Number of rows that are removed at once, more than one edit or merge adds, unless they have more
/// bytes than this.
constexpr int RowsAtOnce = 2500;
constexpr qint64 BytesAtOnce = 8 * Megabyte;

QDateTime dateIn(const QVariant &milliseconds) {
    return milliseconds.isNull() ? QDateTime()
                                 : QDateTime::fromMSecsSinceEpoch(milliseconds.toLongLong());
}

/// Returns the limit that is stored under `key`, or `fallback` if none is.
Expected<int> limit(const ProfileDatabase &profile, const QString &key, int fallback) {
    return ProfileSettings::value(profile, key).map([&](const QVariant &value) {
        if (!value.isValid()) {
            return fallback;
        }
        bool isNumber = false;
        const int number = value.toInt(&isNumber);
        return isNumber && number >= 0 ? number : Unlimited;
    });
}

/// Returns the time up to which the versions have aged, which is the stored one and `allowance`
/// days, but not later than `now`.
Expected<QDateTime> agedTime(const ProfileDatabase &profile, const QDateTime &now, int allowance) {
    return ProfileSettings::value(profile, TimeKey).map([&](const QVariant &stored) {
        return stored.isValid() ? std::min(now, dateIn(stored).addDays(allowance)) : now;
    });
}

/// Returns the date in milliseconds before which versions are too old.
Expected<qint64> endOfOldest(const ProfileDatabase &profile, const HistoryLimits &limits,
                             const QDateTime &now) {
    if (limits.days == 0) {
        return now.toMSecsSinceEpoch();
    }
    return agedTime(profile, now, 0).map([&](const QDateTime &time) {
        return time.addDays(-limits.days).toMSecsSinceEpoch();
    });
}

qint64 bytesOf(const HistoryLimits &limits) {
    return limits.megabytes * Megabyte;
}

/// Removes some of the versions that have ended before `end`.
Expected<void> removeEnded(const ProfileDatabase &profile, qint64 end) {
    return profile.run(
        QStringLiteral("DELETE FROM versions WHERE id IN (SELECT id FROM"
                       " (SELECT id, sum(size) OVER (ORDER BY id) - size AS bytes_before FROM"
                       "  (SELECT id, size FROM versions WHERE ended < ? LIMIT %1))"
                       " WHERE bytes_before < %2)")
            .arg(QString::number(RowsAtOnce), QString::number(BytesAtOnce)),
        {end});
}

/// Removes the oldest versions until about `excess` bytes are removed, or as many as at once.
Expected<void> removeOldest(const ProfileDatabase &profile, qint64 excess) {
    qint64 removed = 0;
    qint64 last = 0;
    const Expected<void> found = profile.read(
        QStringLiteral("SELECT id, size FROM versions ORDER BY id LIMIT %1").arg(RowsAtOnce), {},
        [&](const QSqlQuery &row) {
            if (removed < qMin(excess, BytesAtOnce)) {
                last = row.value(0).toLongLong();
                removed += row.value(1).toLongLong();
            }
        });
    return found.and_then(
        [&] { return profile.run(QStringLiteral("DELETE FROM versions WHERE id <= ?"), {last}); });
}

}  // namespace

NoteHistory::NoteHistory(const ProfileDatabase &profile, qint64 database)
    : m_profile(profile), m_database(database) {}

Expected<QSqlQuery> NoteHistory::prepareAddition() const {
    return m_profile.prepare(
        // Not before the time up to which the versions have aged: it would be too old at once if
        // the clock is set forward again.
        QStringLiteral("INSERT INTO versions (ended, size, database, note_uuid, place, modified,"
                       " title, text) SELECT max(?, coalesce((SELECT CAST(value AS INTEGER) FROM"
                       " settings WHERE key = '%2'), 0)), %1 + length(CAST(title AS BLOB)) +"
                       " length(CAST(text AS BLOB)), database, note_uuid, ?, modified, title, text"
                       " FROM operations WHERE database = ? AND digest = ? AND note_uuid <> ''")
            .arg(QString::number(BytesOfRow), TimeKey));
}

Expected<void> NoteHistory::add(QSqlQuery &addition, const OperationId &identifier,
                                const QString &place) const {
    return m_profile.run(addition, {QDateTime::currentMSecsSinceEpoch(),
                                    ProfileDatabase::text(place), m_database, identifier});
}

Expected<QList<NoteVersion>> NoteHistory::read(const QString &condition, const QVariantList &values,
                                               const VersionsPart &part) const {
    QList<NoteVersion> versions;
    const Expected<void> done = m_profile.read(
        QStringLiteral(
            "SELECT id, note_uuid, CAST(substr(title, 1, 200) AS BLOB), modified,"
            " ended, place FROM versions AS v WHERE %1 AND id < ? ORDER BY id DESC LIMIT ?")
            .arg(condition),
        values + QVariantList{part.before, part.count}, [&](const QSqlQuery &row) {
            versions.append({row.value(0).toLongLong(), row.value(1).toString(),
                             ProfileDatabase::exactText(row.value(2)), dateIn(row.value(3)),
                             dateIn(row.value(4)), row.value(5).toString()});
        });
    if (!done) {
        return failure(done.error());
    }
    return versions;
}

Expected<QList<NoteVersion>> NoteHistory::deletedNotes(const VersionsPart &part) const {
    // The last version of a note that is not there. Without the plus, each part would be chosen
    // from all versions, which an index has in another order.
    return read(QStringLiteral("+v.database = ? AND NOT EXISTS (SELECT 1 FROM operations AS o"
                               "  WHERE o.database = v.database AND o.note_uuid = v.note_uuid)"
                               " AND NOT EXISTS (SELECT 1 FROM versions AS later"
                               "  WHERE later.database = v.database"
                               "  AND later.note_uuid = v.note_uuid AND later.id > v.id)"),
                {m_database}, part);
}

Expected<QList<NoteVersion>> NoteHistory::versions(const QStringList &UUIDs,
                                                   const VersionsPart &part) const {
    const QStringList places(UUIDs.size(), QStringLiteral("?"));
    return read(QStringLiteral("v.database = ? AND note_uuid IN (%1)").arg(places.join(u',')),
                QVariantList{m_database} + QVariantList(UUIDs.begin(), UUIDs.end()), part);
}

Expected<bool> NoteHistory::contains(const OperationId &identifier) const {
    return m_profile
        .value(QStringLiteral("SELECT EXISTS (SELECT 1 FROM operations AS o JOIN versions AS v"
                              " ON v.database = o.database AND v.note_uuid = o.note_uuid"
                              " AND v.title = o.title AND v.text = o.text"
                              " WHERE o.database = ? AND o.digest = ?)"),
               {m_database, identifier})
        .map([](const QVariant &exists) { return exists.toBool(); });
}

Expected<Note> NoteHistory::note(const NoteVersion &version) const {
    std::optional<Note> note;
    const Expected<void> done = m_profile.read(
        QStringLiteral("SELECT note_uuid, CAST(title AS BLOB),"
                       " CAST(text AS BLOB), modified FROM versions"
                       " WHERE database = ? AND id = ?"),
        {m_database, version.identifier}, [&](const QSqlQuery &row) {
            note = Note{row.value(0).toString(), ProfileDatabase::exactText(row.value(1)),
                        ProfileDatabase::exactText(row.value(2)), dateIn(row.value(3))};
        });
    if (!done) {
        return failure(done.error());
    }
    if (!note) {
        return failure(engineError(
            EngineErrorCode::InvalidDatabase,
            "This version of “%1” is no longer kept. Choose another version.", version.title));
    }
    return *note;
}

Expected<HistoryLimits> NoteHistory::limits(const ProfileDatabase &profile) {
    const HistoryLimits defaults;
    const Expected<int> days = limit(profile, DaysKey, defaults.days);
    if (!days) {
        return failure(days.error());
    }
    return limit(profile, MegabytesKey, defaults.megabytes).map([&](int megabytes) {
        return HistoryLimits{*days, megabytes};
    });
}

Expected<void> NoteHistory::setLimits(const ProfileDatabase &profile, const HistoryLimits &limits) {
    return ProfileSettings::set(profile, DaysKey, limits.days).and_then([&] {
        return ProfileSettings::set(profile, MegabytesKey, limits.megabytes);
    });
}

Expected<void> NoteHistory::advanceTime(const ProfileDatabase &profile, const QDateTime &now) {
    return agedTime(profile, now, 1).and_then([&](const QDateTime &time) {
        return ProfileSettings::set(profile, TimeKey, time.toMSecsSinceEpoch());
    });
}

Expected<bool> NoteHistory::exceedsLimits(const ProfileDatabase &profile, const QDateTime &now) {
    const Expected<HistoryLimits> kept = limits(profile);
    if (!kept) {
        return failure(kept.error());
    }
    const Expected<qint64> end = endOfOldest(profile, *kept, now);
    if (!end) {
        return failure(end.error());
    }
    return profile
        .value(QStringLiteral("SELECT EXISTS (SELECT 1 FROM versions WHERE ended < ?)"
                              " OR (EXISTS (SELECT 1 FROM versions)"
                              " AND (SELECT bytes FROM size_of_versions) > ?)"),
               {*end, bytesOf(*kept)})
        .map([](const QVariant &exceeds) { return exceeds.toBool(); });
}

Expected<qint64> NoteHistory::countBeyond(const ProfileDatabase &profile,
                                          const HistoryLimits &limits, const QDateTime &now) {
    return endOfOldest(profile, limits, now)
        .and_then([&](qint64 end) {
            // The newest ones stay as long as they fit together.
            return profile.value(
                QStringLiteral("SELECT (SELECT count(*) FROM versions WHERE ended < ?) +"
                               " (SELECT count(*) FROM (SELECT sum(size) OVER (ORDER BY id DESC)"
                               "  AS bytes FROM versions WHERE ended >= ?) WHERE bytes > ?)"),
                {end, end, bytesOf(limits)});
        })
        .map([](const QVariant &count) { return count.toLongLong(); });
}

Expected<void> NoteHistory::prune(const ProfileDatabase &profile, const QDateTime &now) {
    const Expected<HistoryLimits> kept = limits(profile);
    if (!kept) {
        return failure(kept.error());
    }
    const Expected<qint64> end = endOfOldest(profile, *kept, now);
    if (!end) {
        return failure(end.error());
    }
    const Expected<QVariant> size = removeEnded(profile, *end).and_then([&] {
        return profile.value(QStringLiteral("SELECT bytes FROM size_of_versions"));
    });
    if (!size) {
        return failure(size.error());
    }
    const qint64 excess = size->toLongLong() - bytesOf(*kept);
    return excess > 0 ? removeOldest(profile, excess) : Expected<void>();
}
