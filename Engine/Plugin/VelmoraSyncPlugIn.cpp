#include "Engine/Plugin/VelmoraSyncPlugIn.h"

#include "Engine/DirectConnection/DirectConnectionServer.h"
#include "Engine/DirectConnection/HostLookUp.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/WorkerThreads.h"
#include "Engine/Profile/ProfileBackups.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Host/SyncLog.h"

namespace {

/// The application object of an engine without an application. It logs what users would see.
class ApplicationOfEngine : public QVApplication {
public:
    explicit ApplicationOfEngine(const SyncPlugIn &plugIn) : m_plugIn(plugIn) {}
    std::shared_ptr<QVDatabase> inbox() const override {
        NoteLibrary *library = m_plugIn.library();
        return library ? library->inbox() : nullptr;
    }
    void logItemCmd(const QString & /*title*/, const QString &info) override {
        syncLog().message(info);
    }
    void presentError(const Error &error) override {
        syncLog().message(error.localizedDescription);
    }

private:
    const SyncPlugIn &m_plugIn;
};

}  // namespace

Expected<bool> VelmoraSyncPlugIn::isUnused(const QString &directory) const {
    return ProfileFolder::isUnused(directory);
}

Expected<void> VelmoraSyncPlugIn::openProfile(const QString &directory, ProfileUse use,
                                              FirstContents contents) {
    return m_engine->openProfile(directory, contents, use);
}

Expected<void> VelmoraSyncPlugIn::setUsesSandboxedAccess(bool usesSandboxedAccess) {
    return m_engine->plugin().setUsesSandboxedAccess(usesSandboxedAccess);
}

bool VelmoraSyncPlugIn::isProfileInUse(const Error &error) const {
    return isEngineError(error, EngineErrorCode::ProfileInUse);
}

bool VelmoraSyncPlugIn::isProfileDamaged(const Error &error) const {
    return isEngineError(error, EngineErrorCode::ProfileDamaged) ||
           isEngineError(error, EngineErrorCode::IndexesDamaged);
}

bool VelmoraSyncPlugIn::canReplaceProfile(const Error &error) const {
    return isProfileDamaged(error) || isEngineError(error, EngineErrorCode::ProfileUnreadable);
}

Expected<std::optional<QDate>> VelmoraSyncPlugIn::dateOfBackup(const QString &directory) const {
    return ProfileBackups(directory)
        .newestSound(QDate::currentDate())
        .map([](const std::optional<ProfileBackups::Backup> &backup) {
            return backup ? std::optional(backup->date) : std::nullopt;
        });
}

Expected<void> VelmoraSyncPlugIn::replaceProfile(const QString &directory,
                                                 ProfileReplacement replacement) {
    return replacement == ProfileReplacement::Backup ? SyncEngine::restoreBackup(directory)
                                                     : SyncEngine::beginProfile(directory);
}

VerificationReport VelmoraSyncPlugIn::verify(VerificationMode mode) {
    return m_engine->verify(mode);
}

void VelmoraSyncPlugIn::pauseUntil(const QDateTime &end) {
    m_engine->triggers().pauseUntil(end);
}

bool VelmoraSyncPlugIn::closeProfile() {
    m_classes.reset();
    m_engine.reset();
    return !WorkerThreads::isAbandonedWorkRunning() && !HostLookUp::isAnyRunning() &&
           !DirectConnectionServer::isAnyListenerRunning();
}

NoteLibrary *VelmoraSyncPlugIn::library() const {
    return m_engine ? m_engine->library() : nullptr;
}

Expected<void> VelmoraSyncPlugIn::begin(const QString &folder) {
    setNSApp(m_application.get());
    Expected<void> opened = openProfile(folder, ProfileUse::Edit, FirstContents::Welcome);
    if (!opened) {
        end();
    }
    return opened;
}

void VelmoraSyncPlugIn::end() {
    closeProfile();
    setNSApp(nullptr);
}

Expected<std::shared_ptr<QVDatabase>> VelmoraSyncPlugIn::openNewDatabase(const QString &name) {
    return library()->createDatabase(name).map([this]() -> std::shared_ptr<QVDatabase> {
        // The newest one.
        return library()->knownDatabases().last();
    });
}

Expected<void> VelmoraSyncPlugIn::renameDatabase(const std::shared_ptr<QVDatabase> &database,
                                                 const QString &name) {
    return library()->renameDatabase(std::dynamic_pointer_cast<NoteDatabase>(database), name);
}

Expected<void> VelmoraSyncPlugIn::closeDatabase(const std::shared_ptr<QVDatabase> &database) {
    return library()->closeDatabase(std::dynamic_pointer_cast<NoteDatabase>(database));
}

bool VelmoraSyncPlugIn::fireSchedules(const QDateTime &date) {
    // What was due before is not meant.
    m_engine->triggers().checkSchedules(QDateTime::currentDateTime());
    m_engine->triggers().checkSchedules(date);
    return true;
}

std::unique_ptr<QVApplication> VelmoraSyncPlugIn::makeApplication() const {
    return std::make_unique<ApplicationOfEngine>(*this);
}
