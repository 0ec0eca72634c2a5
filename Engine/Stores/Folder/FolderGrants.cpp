#include "Engine/Stores/Folder/FolderGrants.h"

#include <QtCore/QFileInfo>
#include <algorithm>

#include "Engine/Profile/ProfileDatabase.h"

namespace {

const QString SandboxSetting = QStringLiteral("usesSandboxedAccess");

bool isAtOrBelow(const QString &path, const QString &folder) {
    const QString prefix = folder.endsWith(u'/') ? folder : folder + u'/';
    return path == folder || path.startsWith(prefix);
}

}  // namespace

std::mutex FolderGrants::s_mutex;
FolderGrants *FolderGrants::s_current = nullptr;

FolderGrants::FolderGrants(const ProfileDatabase &profile) : m_profile(profile) {
    const std::lock_guard lock(s_mutex);
    s_current = this;
}

FolderGrants::~FolderGrants() {
    const std::lock_guard lock(s_mutex);
    s_current = nullptr;
}

void FolderGrants::load() {
    QSqlQuery rows = m_profile.prepare(QStringLiteral("SELECT path FROM grants ORDER BY id"));
    rows.exec();
    QStringList paths;
    while (rows.next()) {
        paths.append(rows.value(0).toString());
    }
    const bool areNeeded =
        m_profile
            .value(QStringLiteral("SELECT value FROM settings WHERE key = ?"), {SandboxSetting})
            .toBool();
    const std::lock_guard lock(s_mutex);
    m_paths = paths;
    m_areNeeded = areNeeded;
    m_ownFolder = m_profile.directory();
}

bool FolderGrants::areNeeded() const {
    return m_areNeeded;
}

std::optional<Error> FolderGrants::setNeeded(bool areNeeded) {
    std::optional<Error> error =
        m_profile.run(QStringLiteral("INSERT INTO settings (key, value) VALUES (?, ?)"
                                     " ON CONFLICT (key) DO UPDATE SET value = excluded.value"),
                      {SandboxSetting, areNeeded});
    load();
    return error;
}

QStringList FolderGrants::paths() const {
    return m_paths;
}

std::optional<Error> FolderGrants::add(const QString &path) {
    std::optional<Error> error =
        m_profile.run(QStringLiteral("INSERT OR IGNORE INTO grants (path) VALUES (?)"),
                      {ProfileDatabase::text(path)});
    load();
    return error;
}

std::optional<Error> FolderGrants::remove(const QString &path) {
    std::optional<Error> error = m_profile.run(QStringLiteral("DELETE FROM grants WHERE path = ?"),
                                               {ProfileDatabase::text(path)});
    load();
    return error;
}

bool FolderGrants::permit(const QString &realPath) {
    QStringList paths;
    {
        const std::lock_guard lock(s_mutex);
        if (!s_current || !s_current->m_areNeeded) {
            return true;
        }
        paths = s_current->m_paths;
        paths.append(s_current->m_ownFolder);
    }
    return std::any_of(paths.begin(), paths.end(), [&](const QString &path) {
        const QString folder = QFileInfo(path).canonicalFilePath();
        return !folder.isEmpty() && isAtOrBelow(realPath, folder);
    });
}
