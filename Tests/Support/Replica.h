#pragma once

#include <QtCore/QTemporaryDir>
#include <stdexcept>

#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Profile/ProfileDatabase.h"

/// A new profile with its databases, without the engine around it. It does not outlive the computer
/// that it is on: SQLite does not flush what it writes.
class Replica {
public:
    Replica() : m_library(m_profile) {
        require(m_profile.open(
            m_folder.filePath(QStringLiteral("Profile")),
            [this] { return writeFirstContents(m_profile, FirstContents::Inbox); },
            [] { return Expected<void>(); }));
        require(m_profile.run(QStringLiteral("PRAGMA synchronous = OFF")));
        require(m_library.load());
    }

    const ProfileDatabase &profile() const { return m_profile; }
    EngineNoteLibrary &library() { return m_library; }

private:
    static void require(const Expected<void> &result) {
        if (!result) {
            throw std::runtime_error(result.error().localizedDescription.toStdString());
        }
    }

    QTemporaryDir m_folder;
    ProfileDatabase m_profile;
    EngineNoteLibrary m_library;
};
