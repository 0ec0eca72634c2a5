#include "Engine/Profile/ProfileReader.h"

#include "Engine/Profile/ProfileDatabase.h"

namespace {

thread_local const ProfileReader *readerOfThread = nullptr;

}  // namespace

ProfileReader::ProfileReader(const ProfileDatabase &profile, const std::atomic_bool &isCancelled)
    : m_profile(profile),
      m_isCancelled(isCancelled),
      m_connection(profile.path(), ReadOnlyConnection::Sharing::Shared) {
    // The snapshot is taken by the first read, which fails if there is no connection.
    m_connection.query().exec(QStringLiteral("BEGIN"));
    readerOfThread = this;
}

ProfileReader::~ProfileReader() {
    readerOfThread = nullptr;
    m_connection.query().exec(QStringLiteral("ROLLBACK"));
}

const ProfileReader *ProfileReader::current(const ProfileDatabase &profile) {
    return readerOfThread && &readerOfThread->m_profile == &profile ? readerOfThread : nullptr;
}
