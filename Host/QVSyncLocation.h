#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Host/QVSyncState.h"
#include "Platform/Foundation/Url.h"

class QVSyncStore;

/// A place with which databases synchronize. The locations controller owns those in its list;
/// anyone else who keeps one shares it. Main thread.
class HOST_EXPORT QVSyncLocation : public QObject {
    Q_OBJECT
    Q_PROPERTY(Url URL READ URL WRITE setURL NOTIFY URLChanged)
    Q_PROPERTY(QVSyncStates synchronizationStates READ synchronizationStates NOTIFY
                   synchronizationStatesChanged)
public:
    /// Registered as "QVSyncLocation".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// A new location, in no list yet. A nil URL makes one that is to be configured.
        virtual std::shared_ptr<QVSyncLocation> syncLocationWithURL(const Url &URL) const = 0;
    };

    ~QVSyncLocation() override;

    /// Its scheme says what kind of place it is. nil while it is not configured.
    virtual Url URL() const = 0;
    virtual void setURL(const Url &URL) = 0;
    /// At most one for each database.
    virtual QVSyncStates synchronizationStates() const = 0;
    /// nullptr for a database that has none here, and for an empty UUID. Takes the same time
    /// however many states there are.
    virtual std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const = 0;
    /// The state of that database, made (disabled, without schedule) and announced if there is none
    /// yet.
    virtual std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                                     const QString &name) = 0;
    /// A new store, not open yet, for what lies at the location. Never nullptr: where there is no
    /// store for the URL, opening it fails.
    virtual std::shared_ptr<QVSyncStore> createStore() = 0;

Q_SIGNALS:
    void URLChanged();
    void synchronizationStatesChanged();
};
