#pragma once

#include "Engine/Stores/BlobStore.h"

/// Stands where there is no store for the location's URL: whatever is asked of it fails.
class UnreachableStore : public BlobStore {
public:
    using BlobStore::BlobStore;

    std::optional<Error> open(const EngineFuture &future) override;

protected:
    Result<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Result<QByteArray> readBlob(const QString &name, qint64 limit,
                                const EngineFuture &future) override;
    Result<Written> writeBlob(const QString &name, const QByteArray &contents,
                              const EngineFuture &future) override;
    std::optional<Error> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    Error reason() const;
};
