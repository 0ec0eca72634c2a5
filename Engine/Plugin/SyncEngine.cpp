#include "Engine/Plugin/SyncEngine.h"

#include <QtCore/QDir>
#include <QtCore/QPointer>

#include "Engine/DirectConnection/DirectConnectionPackage.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/ChangeRescue.h"
#include "Engine/Notes/NoteConversion.h"
#include "Engine/Notes/NoteInspection.h"
#include "Engine/Plugin/ProfileVerification.h"
#include "Engine/Profile/ProfileRecovery.h"
#include "Engine/Profile/ProfileSettings.h"
#include "Engine/Profile/ProfileSnapshot.h"
#include "Engine/Stores/StoreOperations.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/UserLanguage.h"

namespace {

/// The setting with the time at which the schedules were last compared with the clock.
const QString LastCheckKey = QStringLiteral("lastScheduleCheck");

Expected<void> openDatabase(ProfileDatabase &profile, const QString &directory,
                            FirstContents contents) {
    return profile.open(
        directory, [&profile, contents] { return writeFirstContents(profile, contents); },
        [&profile] { return convertOldNotes(profile); });
}

/// Reports it when the windows are there. `backupFailure` is why no backup was searched for them.
void reportMissingLocations(const QString &directory, const std::optional<Error> &backupFailure) {
    Error error = engineError(
        EngineErrorCode::BackupFailed,
        "The sync locations of the damaged profile “%1” cannot be read. Add them again in "
        "Sync Preferences, then import your databases.",
        directory);
    if (backupFailure) {
        error.localizedFailureReason = backupFailure->localizedDescription;
    }
    MainQueue::dispatchAsync([error] {
        if (NSApp()) {
            NSApp()->presentError(error);
        }
    });
}

/// Reports what may be missing.
void presentUnread(const QString &directory, const ChangeRescue::Findings &findings) {
    QString text =
        localizedSyncString(
            "Some changes cannot be read from the damaged profile “%1” and may be missing now. "
            "Synchronize, so that they are read from the locations. The damaged files are kept in "
            "the folder “Damaged Profiles”.")
            .arg(directory);
    if (!findings.damaged.isEmpty()) {
        text += u' ' + localizedSyncString("Damaged notes: %1.")
                           .arg(NoteInspection::titles(findings.damaged,
                                                       localizedSyncString("name of a database")));
    }
    NSApp()->presentError(engineError(EngineErrorCode::BackupFailed, text));
}

/// Reports it when the windows are there.
void reportRescue(const QString &directory, const ChangeRescue::Findings &findings) {
    MainQueue::dispatchAsync([directory, findings] {
        if (NSApp() && findings.added > 0) {
            NSApp()->logItemCmd(localizedSyncString("Profile:"),
                                localizedSyncString("Changes that were read from the damaged "
                                                    "profile: %1")
                                    .arg(findings.added));
        }
        if (NSApp() && (!findings.isComplete || !findings.damaged.isEmpty())) {
            presentUnread(directory, findings);
        }
    });
}

/// Adds what can be read from the database `damaged` to the profile in `folder`.
Expected<ChangeRescue::Findings> rescue(const QString &folder, const QString &damaged) {
    ProfileDatabase profile;
    return openDatabase(profile, folder, FirstContents::Inbox).and_then([&] {
        return ChangeRescue::run(damaged, profile);
    });
}

void logIfFailed(const Expected<void> &result) {
    if (!result && NSApp()) {
        NSApp()->logItemCmd(localizedSyncString("Profile:"), result.error().localizedDescription);
    }
}

}  // namespace

SyncEngine::SyncEngine()
    : m_library(m_profile),
      m_plugin(m_profile, m_library),
      m_triggers(*m_plugin.locationsController(), *m_plugin.dispatcher(), m_library),
      m_pruning(m_profile) {
    // The question of the first start is asked before a profile is opened.
    installTranslation();
}

SyncEngine::~SyncEngine() {
    saveLastCheck();
    m_plugin.context().storeOperations->end();
    removeLocalizationTables(&m_translator);
}

Expected<void> SyncEngine::openProfile(const QString &directory, FirstContents contents,
                                       ProfileUse use) {
    m_directory = QDir(directory).absolutePath();
    Expected<void> opened = use == ProfileUse::Snapshot
                                ? openSnapshot(directory, contents)
                                : openDatabase(m_profile, directory, contents);
    opened = opened.and_then([this] { return load(); });
    m_isOpen = opened.has_value();
    if (m_isOpen) {
        logIfFailed(m_profile.protection());
        logIfFailed(ProfileRecovery::removeUnfinished(m_profile.directory()));
        reportRebuiltIndexes();
    }
    if (m_isOpen && use == ProfileUse::Run) {
        m_plugin.startServer();
        m_plugin.forgetRemovals();
        startTriggers();
        m_backups.start(m_profile, inspection());
        m_pruning.start();
        QObject::connect(&m_library, &EngineNoteLibrary::historyLimitsChanged, &m_library,
                         [this] { m_pruning.goOn(); });
    }
    return opened;
}

Expected<void> SyncEngine::beginProfile(const QString &directory) {
    const auto create = [](const QString &folder) {
        ProfileDatabase profile;
        return openDatabase(profile, folder, FirstContents::Inbox);
    };
    const auto backup = ProfileBackups(directory).newestSound(QDate::currentDate());
    const bool hasBackup = backup && *backup;
    ChangeRescue::Findings found;
    const auto amend = [&](const QString &folder, const QString &damaged) -> Expected<void> {
        // The notes could have been restored from a backup.
        if (hasBackup) {
            return {};
        }
        return rescue(folder, damaged).map([&](const auto &findings) { found = findings; });
    };
    return ProfileRecovery::begin(directory, create, amend)
        .map([&](const ProfileRecovery::Beginning &begun) {
            if (!begun.hasLocations) {
                reportMissingLocations(directory, begun.backupFailure);
            }
            reportRescue(directory, found);
        });
}

Expected<void> SyncEngine::restoreBackup(const QString &directory) {
    ChangeRescue::Findings found;
    const auto amend = [&](const QString &folder, const QString &damaged) {
        return rescue(folder, damaged).map([&](const auto &findings) { found = findings; });
    };
    return ProfileRecovery::restoreBackup(directory, amend).map([&] {
        reportRescue(directory, found);
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
    if (!m_snapshotFolder->isValid()) {
        return failure(engineError(
            EngineErrorCode::ProfileUnusable,
            localizedSyncString("A temporary folder cannot be created: %1. Check the permissions "
                                "of “%2” and the space on its disk.")
                .arg(m_snapshotFolder->errorString(), QDir::tempPath())));
    }
    return ProfileSnapshot::write(directory, m_snapshotFolder->path(), create).and_then([&] {
        return openDatabase(m_profile, m_snapshotFolder->path(), contents);
    });
}

void SyncEngine::reportRebuiltIndexes() {
    if (!m_profile.hasRebuiltIndexes()) {
        return;
    }
    const ProfileVerification verification(m_profile, m_library, m_plugin, {});
    const VerificationReport::Part found = verification.verifyProfile();
    for (const QString &sentence : found.repairs + found.problems) {
        logIfFailed(failure(engineError(EngineErrorCode::IndexesDamaged, sentence)));
    }
}

void SyncEngine::startTriggers() {
    const Expected<QVariant> saved = ProfileSettings::value(m_profile, LastCheckKey);
    logIfFailed(saved.map([](const QVariant &) {}));
    const QVariant lastCheck = saved.value_or(QVariant());
    m_triggers.start(lastCheck.isValid() ? QDateTime::fromMSecsSinceEpoch(lastCheck.toLongLong())
                                         : QDateTime());
    saveLastCheck();
}

void SyncEngine::saveLastCheck() const {
    if (m_triggers.lastCheck().isValid()) {
        logIfFailed(ProfileSettings::set(m_profile, LastCheckKey,
                                         m_triggers.lastCheck().toMSecsSinceEpoch()));
    }
}

Expected<void> SyncEngine::load() {
    return m_library.load().and_then([this] { return m_plugin.load(); });
}

BackupSchedule::Inspection SyncEngine::inspection() {
    return
        [library = QPointer(&m_library)](const QString &path, const std::atomic_bool &isCancelled) {
            return NoteInspection::check(path, isCancelled)
                .map([&](const NoteInspection::Findings &findings) {
                    MainQueue::dispatchAsync([library, damage = findings.damaged] {
                        if (library) {
                            library->addDamage(damage);
                        }
                    });
                    return NoteInspection::text(findings);
                });
        };
}

void SyncEngine::installTranslation() {
    const QString folder = QStringLiteral(":/VelmoraSync/Translations");
    const QString table = QStringLiteral("Sync");
    const QString language = userLanguage(folder, table);
    if (!language.isEmpty() && m_translator.load(table + u'_' + language, folder)) {
        addLocalizationTable(SyncTable, &m_translator);
        addLocalizationTable(PlatformTable, &m_translator);
    }
}
