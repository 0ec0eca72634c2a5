#pragma once

#include <QtCore/QObject>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"
#include "Host/QVApplication.h"
#include "Host/QVHostPlugIn.h"

/// The root object of the engine's plug-in, created by QPluginLoader. It creates the engine and
/// registers its classes when it is loaded, and destroys both in closeProfile(); it cannot open
/// another profile afterwards. For the contracts that are not repeated here see SyncPlugIn and
/// QVHostPlugIn. Must be used on the main thread.
class VelmoraSyncPlugIn : public QObject, public SyncPlugIn, public QVHostPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID SyncPlugIn_iid)
    Q_INTERFACES(SyncPlugIn QVHostPlugIn)
public:
    Expected<bool> isUnused(const QString &directory) const override;
    Expected<void> openProfile(const QString &directory, ProfileUse use,
                               FirstContents contents) override;
    Expected<void> setUsesSandboxedAccess(bool usesSandboxedAccess) override;
    bool isProfileInUse(const Error &error) const override;
    bool isProfileDamaged(const Error &error) const override;
    bool canReplaceProfile(const Error &error) const override;
    /// These two may be called while no profile is open.
    Expected<std::optional<QDate>> dateOfBackup(const QString &directory) const override;
    Expected<void> replaceProfile(const QString &directory,
                                  ProfileReplacement replacement) override;
    VerificationReport verify(VerificationMode mode) override;
    void pauseUntil(const QDateTime &end) override;
    /// Destroys the engine, see ~SyncEngine(). No function except library() may be called
    /// afterwards. Idempotent.
    bool closeProfile() override;
    /// Returns null unless a profile is open.
    NoteLibrary *library() const override;

    /// Opens a new profile in `folder`, with the contents FirstContents::Welcome. Nothing is
    /// synchronized or served unless it is asked for.
    Expected<void> begin(const QString &folder) override;
    void end() override;
    /// These create, rename and close a database of library().
    Expected<std::shared_ptr<QVDatabase>> openNewDatabase(const QString &name) override;
    Expected<void> renameDatabase(const std::shared_ptr<QVDatabase> &database,
                                  const QString &name) override;
    Expected<void> closeDatabase(const std::shared_ptr<QVDatabase> &database) override;
    bool fireSchedules(const QDateTime &date) override;

private:
    std::unique_ptr<QVApplication> makeApplication() const;

    /// The application object of begin().
    const std::unique_ptr<QVApplication> m_application = makeApplication();
    /// Null after closeProfile().
    std::unique_ptr<SyncEngine> m_engine = std::make_unique<SyncEngine>();
    std::unique_ptr<EngineClasses> m_classes = std::make_unique<EngineClasses>(*m_engine);
};
