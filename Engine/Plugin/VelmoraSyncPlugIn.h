#pragma once

#include <QtCore/QObject>

#include "Application/Interface/SyncPlugIn.h"
#include "Engine/Plugin/SyncEngine.h"

/// The engine as a plug-in.
class VelmoraSyncPlugIn : public QObject, public SyncPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID SyncPlugIn_iid)
    Q_INTERFACES(SyncPlugIn)
public:
    std::optional<Error> openProfile(const QString &directory) override;
    std::optional<Error> setUsesSandboxedAccess(bool usesSandboxedAccess) override;
    void closeProfile() override;
    NoteLibrary *library() const override;

private:
    std::unique_ptr<SyncEngine> m_engine = std::make_unique<SyncEngine>();
};
