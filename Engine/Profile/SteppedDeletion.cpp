#include "Engine/Profile/SteppedDeletion.h"

#include <QtCore/QDeadlineTimer>

#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Returns whether no such row is left.
Expected<bool> runOneUntil(const QDeadlineTimer &deadline, const ProfileDatabase &profile,
                           const QString &statement, const QVariantList &values) {
    // A row may be large.
    constexpr qint64 mostAtOnce = 256;
    for (qint64 rows = 1;; rows = qMin(2 * rows, mostAtOnce)) {
        const Expected<QVariant> deleted =
            profile.run(statement, values + QVariantList{rows}).and_then([&] {
                return profile.value(QStringLiteral("SELECT changes()"));
            });
        if (!deleted) {
            return failure(deleted.error());
        }
        if (deleted->toLongLong() < rows || deadline.hasExpired()) {
            return deleted->toLongLong() < rows;
        }
    }
}

}  // namespace

QString SteppedDeletion::statement(const QString &table, const QString &key, const QString &rows) {
    return QStringLiteral("DELETE FROM %1 WHERE (%2) IN (SELECT %2 FROM %3 LIMIT ?)")
        .arg(table, key, rows);
}

Expected<bool> SteppedDeletion::runUntil(const QDeadlineTimer &deadline,
                                         const ProfileDatabase &profile,
                                         const QStringList &statements,
                                         const QVariantList &values) {
    for (const QString &statement : statements) {
        Expected<bool> done = runOneUntil(deadline, profile, statement, values);
        if (!done || !*done) {
            return done;
        }
    }
    return true;
}
