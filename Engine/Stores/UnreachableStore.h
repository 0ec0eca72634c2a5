#pragma once

#include "Engine/Stores/BlobStore.h"

/// The store of a location whose URL is nil or of an unknown kind: every operation fails with an
/// error of the code StoreUnreachable that says so. Never blocks. It exists so that a location
/// always has a store, and a location that a newer version has added is reported instead of
/// ignored.
class UnreachableStore : public BlobStore {
public:
    using BlobStore::BlobStore;

    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    /// Returns the error for a nil URL, or for the scheme.
    Error reason() const;
};
