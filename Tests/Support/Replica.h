#pragma once

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <stdexcept>

#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Profile/ProfileDatabase.h"

/// A new profile with its databases, without the engine around it. It does not outlive the computer
/// that it is on: SQLite does not flush what it writes.
class Replica {
public:
    Replica() { require(open()); }

    const ProfileDatabase &profile() const { return m_opened->profile; }
    EngineNoteLibrary &library() { return m_opened->library; }

    /// Closes the profile and opens it again. If that fails, only this function can be called. Ends
    /// the life of what profile() and library() have returned.
    Expected<void> restart() {
        m_opened.reset();
        return open();
    }
    /// Closes the profile, replaces its copy by one of its present state, and opens it again. Ends
    /// the life of what profile() and library() have returned.
    void copyProfile() {
        m_opened.reset();
        QFile::remove(copy());
        if (!QFile::copy(file(), copy())) {
            throw std::runtime_error("the profile cannot be copied");
        }
        require(open());
    }
    /// Replaces the profile by the copy that `source`, which may be this replica, has made, as a
    /// user does who restores a backup or moves to another computer. Ends the life of what
    /// profile() and library() have returned.
    void replaceProfile(const Replica &source) {
        m_opened.reset();
        if (!QFile::remove(file()) || !QFile::copy(source.copy(), file())) {
            throw std::runtime_error("the profile cannot be replaced");
        }
        require(open());
    }

private:
    struct Opened {
        ProfileDatabase profile;
        EngineNoteLibrary library{profile};
    };

    static void require(const Expected<void> &result) {
        if (!result) {
            throw std::runtime_error(result.error().localizedDescription.toStdString());
        }
    }

    QString directory() const { return m_folder.filePath(QStringLiteral("Profile")); }
    QString file() const { return directory() + QStringLiteral("/profile.sqlite"); }
    QString copy() const { return m_folder.filePath(QStringLiteral("Copy.sqlite")); }

    Expected<void> open() {
        m_opened = std::make_unique<Opened>();
        ProfileDatabase &profile = m_opened->profile;
        return profile
            .open(
                directory(), [&] { return writeFirstContents(profile, FirstContents::Inbox); },
                [] { return Expected<void>(); })
            .and_then([&] { return profile.value(QStringLiteral("PRAGMA synchronous = OFF")); })
            .and_then([&](const QVariant &) {
                // Few pages, so that reads and writes reach the disk, which may fail.
                return profile.value(QStringLiteral("PRAGMA cache_size = 5"));
            })
            .and_then([this](const QVariant &) { return m_opened->library.load(); });
    }

    QTemporaryDir m_folder;
    std::unique_ptr<Opened> m_opened;
};
