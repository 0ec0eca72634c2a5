#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncStore;

/// Properties of a database in a store, apart from its UUID. Immutable, therefore thread-safe.
/// Owned by its QVRemoteDatabase, and valid as long as that.
class HOST_EXPORT QVRemoteDatabaseMetadata : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
public:
    ~QVRemoteDatabaseMetadata() override;
    /// Returns the name of the database as the store has it. It was written by other computers and
    /// may contain any text, so it must be shown as plain text.
    virtual QString name() const = 0;
};

/// A database that a store holds. Immutable, therefore thread-safe. Shared ownership. It describes
/// what was read; later changes in the store are not reflected. The last reference may be released
/// on any thread.
class HOST_EXPORT QVRemoteDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString UUID READ UUID CONSTANT)
    Q_PROPERTY(QVRemoteDatabaseMetadata *metadata READ metadata CONSTANT)
public:
    ~QVRemoteDatabase() override;
    /// Returns the identifier of the database, "@inbox" for the inbox. Never empty.
    virtual QString UUID() const = 0;
    /// Returns the other properties. Never null; owned by this object.
    virtual QVRemoteDatabaseMetadata *metadata() const = 0;
    /// Returns the store that this database was read from. Never null. The database keeps the store
    /// alive.
    virtual std::shared_ptr<QVSyncStore> store() const = 0;
};

/// Databases in the order in which a store lists them. No entry is null.
using QVRemoteDatabases = QList<std::shared_ptr<QVRemoteDatabase>>;
