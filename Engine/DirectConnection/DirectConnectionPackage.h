#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <memory>
#include <optional>

#include "Engine/Stores/BlobStore.h"

/// The sync store that a direct-connection server serves, the package "Direct
/// Connection.qvSyncStore" in the profile, as clients may reach it: "databases/UUID.json" and
/// "transactions/UUID/NAME", where NAME consists of at most 128 ASCII letters, digits, "-", "_" and
/// ".", and does not begin with the last. Any other name is refused, whatever it is. Shared; made
/// on the main thread, blocking on any.
class DirectConnectionPackage {
public:
    /// Returns the path of the package of the profile in `directory`.
    static QString pathInProfile(const QString &directory);

    /// `store`: that at `path`.
    DirectConnectionPackage(const QString &path, std::shared_ptr<BlobStore> store);

    QString path() const { return m_path; }
    /// Makes what is missing of the package.
    std::optional<Error> make() const;

    /// As BlobStore says; folders are "databases", "transactions" and "transactions/UUID".
    Expected<QStringList> list(const QString &folder) const;
    Expected<QByteArray> read(const QString &name, qint64 limit) const;
    Expected<BlobStore::Written> writeIfAbsent(const QString &name,
                                               const QByteArray &contents) const;
    Expected<void> remove(const QString &name) const;

private:
    const QString m_path;
    const std::shared_ptr<BlobStore> m_store;
    const std::shared_ptr<EngineFuture> m_future;
};
