#pragma once

#include "Engine/DirectConnectionHook.h"
#include "Engine/DirectConnectionPackage.h"

class EngineNoteLibrary;

/// Puts a record of each database that the profile knows into the store that is served.
class DirectConnectionRecords : public DirectConnectionHook {
public:
    /// `library` must outlive this.
    DirectConnectionRecords(const EngineNoteLibrary &library,
                            const DirectConnectionPackage &package);

    void clientWillRead(std::function<void()> proceed) override;
    void clientsDidWrite() override {}

private:
    void writeRecord(const QString &UUID, const QString &name) const;

    const EngineNoteLibrary &m_library;
    const DirectConnectionPackage m_package;
};
