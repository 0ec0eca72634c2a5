#include "Engine/Plugin/SyncEngine.h"

#include <QtCore/QDir>

#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteConversion.h"
#include "Engine/Plugin/ProfileVerification.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Profile/ProfileSnapshot.h"
#include "Engine/Stores/StoreOperations.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

Expected<void> openDatabase(ProfileDatabase &profile, const QString &directory,
                            FirstContents contents) {
    return profile.open(
        directory, [&profile, contents] { return writeFirstContents(profile, contents); },
        [&profile] { return convertOldNotes(profile); });
}

/// Reports it when the windows are there.
void reportMissingLocations(const QString &directory) {
    MainQueue::dispatchAsync([directory] {
        if (NSApp()) {
            NSApp()->presentError(engineError(
                EngineErrorCode::BackupFailed,
                "The sync locations of the damaged profile “%1” cannot be read. Add them again in "
                "Sync Preferences, then import your databases.",
                directory));
        }
    });
}

}  // namespace

SyncEngine::SyncEngine()
    : m_library(m_profile),
      m_plugin(m_profile, m_library),
      m_triggers(*m_plugin.locationsController(), *m_plugin.dispatcher(), m_library),
      m_pruning(m_profile) {}

SyncEngine::~SyncEngine() {
    m_plugin.context().storeOperations->end();
    removeLocalizationTables(&m_translator);
}

Expected<void> SyncEngine::openProfile(const QString &directory, FirstContents contents,
                                       ProfileUse use) {
    installTranslation();
    m_directory = QDir(directory).absolutePath();
    Expected<void> opened = use == ProfileUse::Snapshot
                                ? openSnapshot(directory, contents)
                                : openDatabase(m_profile, directory, contents);
    opened = opened.and_then([this] { return load(); });
    m_isOpen = opened.has_value();
    if (m_isOpen && !m_profile.protection()) {
        NSApp()->logItemCmd(localizedSyncString("Profile:"),
                            m_profile.protection().error().localizedDescription);
    }
    if (m_isOpen && use == ProfileUse::Run) {
        m_plugin.startServer();
        m_plugin.forgetRemovedLocations();
        m_triggers.start();
        m_backups.start(m_profile);
        m_pruning.start();
    }
    return opened;
}

Expected<void> SyncEngine::beginProfile(const QString &directory) {
    return ProfileRecovery::begin(directory,
                                  [](const QString &folder) {
                                      ProfileDatabase profile;
                                      return openDatabase(profile, folder, FirstContents::Inbox);
                                  })
        .map([&](bool hasLocations) {
            if (!hasLocations) {
                reportMissingLocations(directory);
            }
        });
}

VerificationReport SyncEngine::verify(VerificationMode mode) {
    return ProfileVerification(m_profile, m_library, m_plugin,
                               DirectConnectionPackage::pathInProfile(m_directory))
        .run(mode);
}

Expected<void> SyncEngine::openSnapshot(const QString &directory, FirstContents contents) {
    const auto create = [&] {
        ProfileDatabase profile;
        return openDatabase(profile, directory, contents);
    };
    m_snapshotFolder = std::make_unique<QTemporaryDir>();
    return ProfileSnapshot::write(directory, m_snapshotFolder->path(), create).and_then([&] {
        return openDatabase(m_profile, m_snapshotFolder->path(), contents);
    });
}

Expected<void> SyncEngine::load() {
    return m_library.load().and_then([this] { return m_plugin.load(); });
}

void SyncEngine::installTranslation() {
    if (m_translator.load(QLocale(), QStringLiteral("Sync"), QStringLiteral("_"),
                          QStringLiteral(":/VelmoraSync/Translations"))) {
        addLocalizationTable(SyncTable, &m_translator);
        addLocalizationTable(PlatformTable, &m_translator);
    }
}
