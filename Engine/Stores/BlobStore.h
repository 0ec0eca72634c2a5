#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include "Engine/Stores/EngineStore.h"
#include "Platform/Foundation/Expected.h"

/// Common base of all kinds of sync stores: named blobs that are written once and never change.
///
/// A name is the path of the blob in the store's folder, such as "databases/UUID.json" or
/// "transactions/UUID/NAME", always with "/" as separator. Each component has 1 to 255 bytes of
/// UTF-8, contains no control character, and does not begin with a point. Any other name is refused
/// with the code BlobRefused, without access to the store.
///
/// All operations block and must be called on a worker thread; they are thread-safe. If `future` is
/// cancelled, an operation soon returns an error of the code Cancelled; a write or removal may have
/// happened nevertheless. open() need not have been called, but returns the best error message if
/// the store cannot be used.
///
/// Other clients write to the same store, and their data is not trusted: a read returns what is
/// stored under the name at that time. A kind of store implements the protected functions; the
/// public ones check what is passed to them and returned by them.
class BlobStore : public EngineStore {
public:
    using EngineStore::EngineStore;

    /// Maximum size of a database record in bytes; a longer one is refused.
    static constexpr qint64 RecordLimit = 65536;

    /// Maximum number of entries of a folder that can be listed, so that a store cannot exhaust the
    /// memory of this computer.
    static constexpr qsizetype MostNames = 200'000;

    /// Maximum number of databases of a store, and bytes of all their names, that can be listed, so
    /// that they can be shown.
    static constexpr qsizetype MostDatabases = 10'000;
    static constexpr qsizetype MostBytesOfNames = 4'000'000;

    /// Maximum number of databases whose size is determined.
    static constexpr qsizetype MostMeasured = 100;

    /// Returns how many records to read, write or remove at a time, besides opening the store,
    /// listing a folder and reading the record of a database. More than 1 is faster if most of the
    /// time of an operation is spent waiting for a server.
    virtual int operationsAtOnce() const { return 1; }

    /// Result of a write.
    enum class Written {
        New,
        /// A blob of this name existed before. It may come from an earlier attempt of the same
        /// write whose response was lost.
        AlreadyThere
    };

    /// Returns the names directly in `folder`, including folders, sorted by code units and without
    /// duplicates; they do not contain the path of the folder. Entries that are not valid names are
    /// omitted. A folder that does not exist is empty. Fails with the code StoreUnreachable if
    /// there are more than MostNames entries. What others write or remove meanwhile may be in the
    /// list or not.
    Expected<QStringList> list(const QString &folder, const EngineFuture &future);
    /// Returns the contents of a blob. Fails with the code BlobMissing if it does not exist, and
    /// with BlobRefused if it is longer than `limit` bytes (no more than that is received, or 1 MiB
    /// if that is more) or not a plain file. The contents are not checked; a caller must verify
    /// what it reads.
    Expected<QByteArray> read(const QString &name, qint64 limit, const EngineFuture &future);
    /// Writes a blob unless one of that name exists, and creates the folders that it needs. Atomic:
    /// other clients see the complete blob or none, also if the write is interrupted. If it fails,
    /// the blob may exist nevertheless; calling it again is safe. `contents` may be empty.
    Expected<Written> writeIfAbsent(const QString &name, const QByteArray &contents,
                                    const EngineFuture &future);
    /// Removes a blob. Succeeds if it does not exist. Its folders remain.
    Expected<void> remove(const QString &name, const EngineFuture &future);

    /// Returns the location of `name` as text for the user, without a password. `name` may be
    /// empty, for the store itself. Does not block.
    virtual QString place(const QString &name) const;
    /// Returns the error, of the code DamagedRecord, for a record that was missing when it was read
    /// but is listed again: reporting it as missing would make the synchronization write it again
    /// or remove what depends on it.
    Error notReturned(const QString &name) const;

protected:
    /// Implementations of the operations above. Names were checked, and `future` was not cancelled
    /// before. Names returned by listFolder() need not be valid or sorted.
    virtual Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) = 0;
    virtual Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                          const EngineFuture &future) = 0;
    virtual Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                        const EngineFuture &future) = 0;
    virtual Expected<void> removeBlob(const QString &name, const EngineFuture &future) = 0;

    /// Returns the size in bytes of the blobs directly in `folder`; empty, as by default, if the
    /// store does not report it. A folder that does not exist is empty.
    virtual Expected<std::optional<qint64>> sizeOfFolder(const QString &folder,
                                                         const EngineFuture &future);

    /// Return the errors for a blob that does not exist, is too long, or is not a plain file.
    Error missing(const QString &name) const;
    Error tooLong(const QString &name) const;
    Error refused(const QString &name) const;
    /// Returns the error for a folder with more than MostNames entries.
    Error tooManyNames(const QString &folder) const;

    /// Reads the records "databases/UUID.json", whose format is described in
    /// Engine/Notes/StoreFormat.md. The first record that is damaged, of a newer version, not
    /// accessible, or listed again after it was missing is reported as `problem` next to the other
    /// databases. If the store fails, returns only the error, and one of the code StoreUnreachable
    /// if there are more than MostDatabases records, of which none is read then, or their names
    /// have more than MostBytesOfNames bytes. Other files of the folder are ignored.
    Expected<Fetched> fetch(const EngineFuture &future) override;
    /// Returns the size of the folder of the records and of the folders with the transactions of
    /// each database; empty only if there are more than MostMeasured databases or the store does
    /// not report sizes. Fails if any of these folders cannot be listed.
    Expected<std::optional<qint64>> measure(const EngineFuture &future) override;
    /// Writes a probe, see StoreProbe.
    Expected<void> probe(const EngineFuture &future) override;

private:
    /// Returns an error if `future` is cancelled or `name` is not valid.
    Expected<void> checkRequest(const QString &name, const EngineFuture &future) const;
    /// Returns the error for more databases or longer names than can be listed.
    Error tooManyDatabases() const;
    /// Returns the names of the records of databases.
    Expected<QStringList> databaseRecords(const EngineFuture &future);
    /// Returns the name in the record `file`.
    Expected<QString> databaseName(const QString &file, const EngineFuture &future);
};
