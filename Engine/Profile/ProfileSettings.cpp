#include "Engine/Profile/ProfileSettings.h"

#include "Engine/Profile/ProfileDatabase.h"

namespace {

/// Returns the first key behind those that begin with `prefix`, whose last character is ASCII.
QString endOf(const QString &prefix) {
    return prefix.chopped(1) + QChar(prefix.back().unicode() + 1);
}

}  // namespace

Expected<QVariant> ProfileSettings::value(const ProfileDatabase &profile, const QString &key) {
    return profile.value(QStringLiteral("SELECT value FROM settings WHERE key = ?"), {key});
}

Expected<QMap<QString, QVariant>> ProfileSettings::values(const ProfileDatabase &profile,
                                                          const QString &prefix) {
    QMap<QString, QVariant> values;
    return profile
        .read(QStringLiteral("SELECT key, value FROM settings WHERE key >= ? AND key < ?"),
              {prefix, endOf(prefix)},
              [&](const QSqlQuery &row) {
                  values.insert(row.value(0).toString().sliced(prefix.size()), row.value(1));
              })
        .map([&] { return values; });
}

Expected<void> ProfileSettings::set(const ProfileDatabase &profile, const QString &key,
                                    const QVariant &value) {
    return profile.run(QStringLiteral("INSERT OR REPLACE INTO settings (key, value) VALUES (?, ?)"),
                       {key, value});
}

Expected<void> ProfileSettings::remove(const ProfileDatabase &profile, const QString &key) {
    return profile.run(QStringLiteral("DELETE FROM settings WHERE key = ?"), {key});
}

Expected<void> ProfileSettings::removeAll(const ProfileDatabase &profile, const QString &prefix,
                                          const QString &suffix) {
    return profile.run(QStringLiteral("DELETE FROM settings WHERE key >= ? AND key < ?"
                                      " AND (length(?) = 0 OR substr(key, -length(?)) = ?)"),
                       {prefix, endOf(prefix), ProfileDatabase::text(suffix),
                        ProfileDatabase::text(suffix), ProfileDatabase::text(suffix)});
}
