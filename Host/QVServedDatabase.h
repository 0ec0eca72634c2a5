#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/HostExport.h"
#include "Platform/KeyValue/SharedPointer.h"

/// A database of this computer, and whether the built-in server serves it. Must be used on the main
/// thread.
///
/// This is an optional addition, see QVDirectConnectionServer::databases().
class HOST_EXPORT QVServedDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(bool served READ isServed WRITE setServed NOTIFY servedChanged)
public:
    ~QVServedDatabase() override;

    /// Returns the name that the user has given the database.
    virtual QString name() const = 0;
    /// Returns whether clients can read and change the database.
    virtual bool isServed() const = 0;
    /// Changes that, from the next request of each client on, and saves it. If it cannot be saved,
    /// the host presents the error and the choice stays as it was. Emits servedChanged() in both
    /// cases. Blocks for a disk write.
    virtual void setServed(bool isServed) = 0;

Q_SIGNALS:
    /// Emitted after the name has changed.
    void nameChanged();
    /// Emitted by setServed().
    void servedChanged();
};
