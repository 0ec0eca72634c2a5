#include "Engine/Profile/LogMover.h"

#include <QtCore/QPointer>

#include "Engine/Profile/ProfileDatabase.h"
#include "Platform/Foundation/MainQueue.h"

LogMover::LogMover(const ProfileDatabase &profile) : m_profile(profile) {}

void LogMover::move(const Handler &handler) {
    const auto finish = [self = QPointer(this), handler](const Expected<void> &moved) {
        MainQueue::dispatchAsync([self, handler, moved] {
            if (self) {
                handler(moved);
            }
        });
    };
    const Expected<void> started =
        m_threads.start([path = m_profile.path(), files = m_profile.files(), finish] {
            finish(ProfileDatabase::moveLog(path, files));
        });
    if (!started) {
        finish(started);
    }
}
