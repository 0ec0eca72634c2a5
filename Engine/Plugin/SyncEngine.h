#pragma once

#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <memory>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Notes/EngineNoteLibrary.h"
#include "Engine/Notes/FirstContents.h"
#include "Engine/Plugin/EngineSyncPlugin.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Synchronization/SyncTriggers.h"

/// The whole engine of one profile. A process can have several; EngineClasses makes one of them
/// available to the preference pane. Must be used on the main thread.
class SyncEngine {
public:
    SyncEngine();
    /// Cancels what stores still do and waits for its end, so it must not be called while a handler
    /// waits for the main thread.
    ~SyncEngine();
    SyncEngine(const SyncEngine &) = delete;
    SyncEngine &operator=(const SyncEngine &) = delete;

    /// See SyncPlugIn::openProfile; `contents` is for a new profile.
    Expected<void> openProfile(const QString &directory,
                               FirstContents contents = FirstContents::Welcome,
                               ProfileUse use = ProfileUse::Run);
    /// nullptr while no profile is open.
    EngineNoteLibrary *library() { return m_isOpen ? &m_library : nullptr; }
    EngineSyncPlugin &plugin() { return m_plugin; }
    const ProfileDatabase &profile() const { return m_profile; }
    SyncTriggers &triggers() { return m_triggers; }

private:
    Expected<void> openSnapshot(const QString &directory, FirstContents contents);
    Expected<void> load();
    void installTranslation();

    QTranslator m_translator;
    /// Holds the copy of the profile; must be destroyed after the database in it is closed.
    std::unique_ptr<QTemporaryDir> m_snapshotFolder;
    ProfileDatabase m_profile;
    EngineNoteLibrary m_library;
    EngineSyncPlugin m_plugin;
    SyncTriggers m_triggers;
    bool m_isOpen = false;
};
