#include "Engine/Stores/Folder/FolderGrants.h"

#include <QtCore/QFileInfo>
#include <algorithm>

#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Platform/Foundation/PathComponents.h"

namespace {

const QString SandboxSetting = QStringLiteral("usesSandboxedAccess");

}  // namespace

FolderGrants::FolderGrants(const ProfileDatabase &profile) : m_profile(profile) {}

Expected<void> FolderGrants::load() {
    QStringList paths;
    const Expected<void> read =
        m_profile.read(QStringLiteral("SELECT path FROM grants ORDER BY id"), {},
                       [&](const QSqlQuery &row) { paths.append(row.value(0).toString()); });
    const Expected<QVariant> areNeeded =
        read.and_then([this] { return ProfileSettings::value(m_profile, SandboxSetting); });
    const std::lock_guard lock(m_mutex);
    m_ownFolder = m_profile.directory();
    m_paths = areNeeded ? paths : QStringList();
    m_areNeeded = !areNeeded || areNeeded->toBool();
    return areNeeded ? Expected<void>() : failure(areNeeded.error());
}

bool FolderGrants::areNeeded() const {
    return m_areNeeded;
}

Expected<void> FolderGrants::setNeeded(bool areNeeded) {
    return ProfileSettings::set(m_profile, SandboxSetting, areNeeded).and_then([this] {
        return load();
    });
}

QStringList FolderGrants::paths() const {
    return m_paths;
}

Expected<void> FolderGrants::add(const QString &path) {
    return m_profile
        .run(QStringLiteral("INSERT OR IGNORE INTO grants (path) VALUES (?)"),
             {ProfileDatabase::text(path)})
        .and_then([this] { return load(); });
}

Expected<void> FolderGrants::remove(const QString &path) {
    return m_profile
        .run(QStringLiteral("DELETE FROM grants WHERE path = ?"), {ProfileDatabase::text(path)})
        .and_then([this] { return load(); });
}

bool FolderGrants::permit(const QString &realPath) const {
    QStringList paths;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_areNeeded) {
            return true;
        }
        paths = m_paths;
        paths.append(m_ownFolder);
    }
    return std::any_of(paths.begin(), paths.end(), [&](const QString &path) {
        const QString folder = QFileInfo(path).canonicalFilePath();
        return !folder.isEmpty() && PathComponents::isAtOrBelow(realPath, folder);
    });
}
