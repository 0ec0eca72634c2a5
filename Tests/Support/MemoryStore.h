#pragma once

#include <map>

#include "Engine/Stores/BlobStore.h"

/// A store in memory that fails on request.
class MemoryStore : public BlobStore {
public:
    using Blobs = std::map<QString, QByteArray>;
    /// How an operation fails.
    enum class Fault {
        None,
        /// The operation has no effect and returns an error.
        Unreachable,
        /// The operation succeeds, but returns an error.
        LostAnswer,
        /// Only the beginning is written, and an error is returned.
        Torn,
        /// Only the beginning is written, and success is returned.
        HalfKept,
        /// The operation succeeds, but a listing omits a name, a read returns another byte, and a
        /// write or removal has no effect.
        Lie,
        /// A read returns that the blob is missing although it is listed. Other operations succeed.
        Withhold
    };

    /// The contents of a blob that is listed, but always missing when it is read.
    static inline const QByteArray Withheld = QByteArrayLiteral("withheld");

    using NextFault = std::function<Fault()>;

    /// `blobs` is not owned and must outlive this object. `nextFault` is called before each
    /// operation; by default, none fails. Shares ownership of `operations`.
    explicit MemoryStore(
        Blobs &blobs, NextFault nextFault = [] { return Fault::None; },
        std::shared_ptr<StoreOperations> operations = std::make_shared<StoreOperations>());

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
    const NextFault m_nextFault;
};
