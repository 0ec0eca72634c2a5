#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/KeyValue/SharedPointer.h"

class QVSyncStore;

/// What a store tells of a database besides its UUID.
class HOST_EXPORT QVRemoteDatabaseMetadata : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name CONSTANT)
public:
    ~QVRemoteDatabaseMetadata() override;
    virtual QString name() const = 0;
};

/// A database as a store holds it. Immutable; shared; any thread.
class HOST_EXPORT QVRemoteDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString UUID READ UUID CONSTANT)
    Q_PROPERTY(QVRemoteDatabaseMetadata *metadata READ metadata CONSTANT)
public:
    ~QVRemoteDatabase() override;
    virtual QString UUID() const = 0;
    /// Belongs to this object.
    virtual QVRemoteDatabaseMetadata *metadata() const = 0;
    /// The store that delivered it.
    virtual std::shared_ptr<QVSyncStore> store() const = 0;
};

using QVRemoteDatabases = QList<std::shared_ptr<QVRemoteDatabase>>;
