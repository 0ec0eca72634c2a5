#pragma once

#include "Engine/EngineStore.h"

/// A package on a local or mounted volume: a folder with the extension "qvSyncStore" that holds the
/// folders "databases" and "transactions".
///
/// For each database there is a record "databases/UUID.json", a JSON object (RFC 8259) of "uuid",
/// which is that of the file name, "name", which is not empty, and "version", which is 1. Anyone
/// may write there, so nothing is believed unchecked; what is wrong with a record is told beside
/// the databases of the others.
class FolderStore : public EngineStore {
public:
    using EngineStore::EngineStore;

    /// Bytes; a longer record is refused.
    static constexpr qint64 RecordLimit = 65536;

protected:
    std::optional<Error> open() override;
    Fetched fetch(const PZFuture &future) override;

private:
    QString folder(const QString &name) const;
};
