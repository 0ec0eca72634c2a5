#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <memory>

#include "Engine/Stores/BlobStore.h"

class ServedDatabases;

/// The sync store that a direct-connection server serves, the package "Direct
/// Connection.qvSyncStore" in the profile, restricted to the names that clients may use:
/// "databases/UUID.json" and "transactions/UUID/NAME", where NAME consists of 1 to 128 ASCII
/// letters, digits, "-", "_" and ".", and does not begin with a point; and the probes of
/// StoreProbe. Any other name is refused with the code BlobRefused, and what belongs to a database
/// that is not served with the code NotServed. Copies share the store. Must be created on the
/// main thread; the other functions block for file access and are thread-safe. Clients are not
/// trusted: every name that they send passes through here. Operations cannot be cancelled.
class DirectConnectionPackage {
public:
    /// Returns the path of the package of the profile in `directory`.
    static QString pathInProfile(const QString &directory);

    /// `store` is the store of the package at `path`. Neither pointer must be null; ownership is
    /// shared.
    DirectConnectionPackage(const QString &path, std::shared_ptr<BlobStore> store,
                            std::shared_ptr<const ServedDatabases> databases);

    QString path() const { return m_path; }
    /// Creates the folders of the package that do not exist. Fails with the code ServerUnusable.
    /// Idempotent.
    Expected<void> make() const;

    /// The operations of BlobStore, with its limits and errors. Folders are "databases",
    /// "transactions" and "transactions/UUID"; names in them that clients may not use, and those of
    /// databases that are not served, are omitted from the list.
    Expected<QStringList> list(const QString &folder) const;
    Expected<QByteArray> read(const QString &name, qint64 limit) const;
    Expected<BlobStore::Written> writeIfAbsent(const QString &name,
                                               const QByteArray &contents) const;
    Expected<void> remove(const QString &name) const;

private:
    bool isServed(const QString &name) const;
    /// Fails if clients may not use the blob `name`.
    Expected<void> checkBlob(const QString &name) const;

    const QString m_path;
    const std::shared_ptr<BlobStore> m_store;
    const std::shared_ptr<const ServedDatabases> m_databases;
    /// Never cancelled.
    const std::shared_ptr<EngineFuture> m_future;
};
