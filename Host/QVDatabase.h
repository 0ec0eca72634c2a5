#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Platform/KeyValue/SharedPointer.h"

/// A database of the host application. Shared ownership: a database stays valid, but not
/// necessarily open, as long as a reference to it is held. Must be used on the main thread.
class HOST_EXPORT QVDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString UUID READ UUID CONSTANT)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVDatabase"};
        /// Implements QVDatabase::databases().
        virtual QList<std::shared_ptr<QVDatabase>> databases() const = 0;
    };
    /// Returns the open databases, including the inbox, in the order in which the host shows them.
    /// No entry is null. A change is posted as QVSyncPluginDidOpenDatabase or
    /// QVSyncPluginDidCloseDatabase. Empty if the host has no class "QVDatabase".
    static QList<std::shared_ptr<QVDatabase>> databases();

    ~QVDatabase() override;

    /// Returns the identifier of the database. Never empty, constant, and compared as text: two
    /// objects with equal identifiers represent the same database.
    virtual QString UUID() const = 0;
    /// Returns the name that the user has given the database, which may be any text and is not
    /// unique. A change emits nameChanged() and is then posted as QVDatabaseRenamedNotification.
    virtual QString name() const = 0;

Q_SIGNALS:
    /// Emitted after the name has changed, also by a synchronization; name() returns the new one.
    void nameChanged();
};
