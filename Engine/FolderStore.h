#pragma once

#include "Engine/EngineStore.h"

/// A store in a folder: a package "NAME.qvSyncStore" with the subfolders "databases" and
/// "transactions". Each file "databases/UUID.json" is the record of a database: {"version": 1,
/// "uuid": UUID, "name": NAME}. Records come from anywhere; one that is not in order is an error,
/// and the others are still delivered.
class FolderStore : public EngineStore {
public:
    FolderStore(std::shared_ptr<QVSyncLocation> location, QString path);

protected:
    std::optional<Error> open() override;
    Fetched fetchDatabases() override;

private:
    const QString m_path;
};
