#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Host/HostExport.h"
#include "Platform/Foundation/Error.h"

class PZFuture;
class QVSyncStore;

/// What a check of a store has found. A value.
struct HOST_EXPORT QVSyncStoreCheck {
    /// The number of databases that the store contains.
    qint64 databases = 0;
    /// The size of the store in bytes; empty if it is not known.
    std::optional<qint64> size = {};
    /// Whether everything could be read.
    bool isReadable = false;
    /// Why the store cannot be read or, if it can, why it cannot be written, in words for the user;
    /// empty if it can be both read and written.
    std::optional<Error> error = {};
    /// Whether a probe was written and read back.
    bool isWritable = false;

    /// Returns what was found about the location with this title, in words for the user: the error,
    /// or that the location can be used, and what it contains.
    QString text(const QString &title) const;
};

/// An optional addition to QVSyncStore: a store that can be checked is of this class, too.
class HOST_EXPORT QVCheckableStore {
public:
    /// Receives what was found.
    using CheckHandler = std::function<void(const QVSyncStoreCheck &found)>;

    virtual ~QVCheckableStore();

    /// Returns `store`, which may be null, as one that can be checked; null if it cannot.
    static std::shared_ptr<QVCheckableStore> of(const std::shared_ptr<QVSyncStore> &store);

    /// Opens the store, reads which databases it contains, and writes, reads and removes a small
    /// probe, which is no record and which no reader notices. The store is closed afterwards.
    /// Future and handler are those of the operations of QVSyncStore. The probe is also removed if
    /// the check is cancelled; one that a process has left is removed by a later check.
    virtual std::shared_ptr<PZFuture> checkWithCompletionHandler(CheckHandler handler) = 0;
};
