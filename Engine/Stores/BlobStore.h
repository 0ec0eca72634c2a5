#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include "Engine/Stores/EngineStore.h"
#include "Platform/Foundation/Expected.h"

/// What all kinds of sync stores are: named blobs that are written once and never change.
///
/// A name is the way to the blob from the store's own folder, such as "databases/UUID.json" or
/// "transactions/UUID/NAME", always with "/". Each part has 1 to 255 bytes in UTF-8, no control
/// character, and does not begin with a point; anything else is refused before the store is asked.
///
/// All operations block and are called on a worker thread; several threads may call. An operation
/// whose `future` is cancelled soon ends with an error of the code Cancelled. The store need not
/// have been opened by a handler; `open` tells best why nothing would work.
///
/// Others write there too, and nothing that they wrote is believed: what is read is whatever lies
/// under that name now.
class BlobStore : public EngineStore {
public:
    using EngineStore::EngineStore;

    /// Bytes; a longer record of a database is refused.
    static constexpr qint64 RecordLimit = 65536;

    enum class Written {
        New,
        /// Something was there before, which may be what an earlier try of the same write has left
        /// when its answer was lost.
        AlreadyThere
    };

    /// The names directly in `folder`, folders among them, sorted; without those that are no names
    /// of blobs. A folder that is not there is empty.
    Expected<QStringList> list(const QString &folder, const EngineFuture &future);
    /// The contents of a blob. One that is not there is an error of the code BlobMissing; one
    /// longer than `limit` bytes, which is not read whole, or which is no plain file, one of the
    /// code BlobRefused.
    Expected<QByteArray> read(const QString &name, qint64 limit, const EngineFuture &future);
    /// Writes a blob where there is none of that name, with the folders that it needs. It is there
    /// whole or not at all, whatever happens meanwhile.
    Expected<Written> writeIfAbsent(const QString &name, const QByteArray &contents,
                                    const EngineFuture &future);
    /// Harmless where there is no such blob. Folders stay.
    Expected<void> remove(const QString &name, const EngineFuture &future);

    /// Where `name` is, for a person to read.
    virtual QString place(const QString &name) const;

protected:
    /// What a kind of store does; the names were checked.
    virtual Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) = 0;
    virtual Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                          const EngineFuture &future) = 0;
    virtual Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                        const EngineFuture &future) = 0;
    virtual Expected<void> removeBlob(const QString &name, const EngineFuture &future) = 0;

    Error missing(const QString &name) const;
    Error tooLong(const QString &name) const;
    Error refused(const QString &name) const;

    /// Reads the records "databases/UUID.json". Each is a JSON object (RFC 8259) of "uuid", which
    /// is that of the file name, "name", which is not empty, and "version", which is 1. What is
    /// wrong with one is told beside the databases of the others; where the store fails meanwhile,
    /// there is only the error.
    Expected<Fetched> fetch(const EngineFuture &future) override;

private:
    std::optional<Error> obstacle(const QString &name, const EngineFuture &future) const;
    Expected<QString> databaseName(const QString &file, const EngineFuture &future);
};
