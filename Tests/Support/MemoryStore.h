#pragma once

#include <map>

#include "Engine/Stores/BlobStore.h"

/// A store in memory that fails as it is told to.
class MemoryStore : public BlobStore {
public:
    using Blobs = std::map<QString, QByteArray>;
    enum class Fault {
        None,
        /// Nothing happens.
        Unreachable,
        /// It happens, but nobody learns of it.
        LostAnswer,
        /// Of what is written, only the beginning arrives, and nobody learns of it.
        Torn,
        /// Of what is written, only the beginning arrives, and the store reports success.
        HalfKept
    };

    /// `blobs` must outlive this. `nextFault` is asked before each operation.
    MemoryStore(Blobs &blobs, std::function<Fault()> nextFault);

    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    Blobs &m_blobs;
    const std::function<Fault()> m_nextFault;
};
