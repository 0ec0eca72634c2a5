#include "Engine/Profile/ProfileReader.h"

namespace {

thread_local const ProfileReader *readerOfThread = nullptr;

}  // namespace

Expected<std::unique_ptr<const ProfileReader>> ProfileReader::open(
    const ProfileDatabase &profile, const QString &path, const std::atomic_bool &isCancelled) {
    auto connection = ReadOnlyConnection::open(path, ReadOnlyConnection::Sharing::Shared);
    if (!connection) {
        return failure(connection.error());
    }
    // The snapshot is taken by the first read.
    const auto ignoreRow = [](const QSqlQuery &) {};
    if (const Expected<void> begun = (*connection)->read(QStringLiteral("BEGIN"), ignoreRow);
        !begun) {
        return failure(begun.error());
    }
    return std::unique_ptr<const ProfileReader>(
        new ProfileReader(profile, isCancelled, *std::move(connection)));
}

ProfileReader::ProfileReader(const ProfileDatabase &profile, const std::atomic_bool &isCancelled,
                             std::unique_ptr<const ReadOnlyConnection> connection)
    : m_profile(profile), m_isCancelled(isCancelled), m_connection(std::move(connection)) {
    readerOfThread = this;
}

ProfileReader::~ProfileReader() {
    readerOfThread = nullptr;
}

const ProfileReader *ProfileReader::current(const ProfileDatabase &profile) {
    return readerOfThread && &readerOfThread->m_profile == &profile ? readerOfThread : nullptr;
}
