#include "Engine/DirectConnection/ServedDatabases.h"

#include "Engine/Profile/ProfileSettings.h"

namespace {

/// The settings of the databases that are not served, each followed by the UUID.
const QString ExcludedKey = QStringLiteral("notServed/");

}  // namespace

Expected<void> ServedDatabases::load() {
    return ProfileSettings::values(m_profile, ExcludedKey)
        .map([this](const QMap<QString, QVariant> &excluded) {
            const QStringList UUIDs = excluded.keys();
            const std::lock_guard lock(m_mutex);
            m_excluded = QSet<QString>(UUIDs.begin(), UUIDs.end());
        });
}

Expected<void> ServedDatabases::setServed(const QString &databaseUUID, bool isServed) {
    const QString key = ExcludedKey + databaseUUID;
    const Expected<void> saved = isServed ? ProfileSettings::remove(m_profile, key)
                                          : ProfileSettings::set(m_profile, key, true);
    return saved.map([&] {
        const std::lock_guard lock(m_mutex);
        if (isServed) {
            m_excluded->remove(databaseUUID);
        } else {
            m_excluded->insert(databaseUUID);
        }
    });
}

bool ServedDatabases::contain(const QString &databaseUUID) const {
    const std::lock_guard lock(m_mutex);
    return m_excluded && !m_excluded->contains(databaseUUID);
}
