#pragma once

#include <QtCore/QObject>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Plugin/EngineClasses.h"
#include "Engine/Plugin/SyncEngine.h"

/// The engine as a plug-in.
class VelmoraSyncPlugIn : public QObject, public SyncPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID SyncPlugIn_iid)
    Q_INTERFACES(SyncPlugIn)
public:
    Expected<void> openProfile(const QString &directory, ProfileUse use) override;
    Expected<void> setUsesSandboxedAccess(bool usesSandboxedAccess) override;
    bool isProfileInUse(const Error &error) const override;
    void closeProfile() override;
    NoteLibrary *library() const override;

private:
    std::unique_ptr<SyncEngine> m_engine = std::make_unique<SyncEngine>();
    std::unique_ptr<EngineClasses> m_classes = std::make_unique<EngineClasses>(*m_engine);
};
