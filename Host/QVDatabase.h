#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Platform/KeyValue/SharedPointer.h"

/// A database of the application. Shared with the host; main thread.
class HOST_EXPORT QVDatabase : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString UUID READ UUID CONSTANT)
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
public:
    /// Registered as "QVDatabase".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The open databases, the inbox included, in the host's order.
        virtual QList<std::shared_ptr<QVDatabase>> databases() const = 0;
    };
    static QList<std::shared_ptr<QVDatabase>> databases();

    ~QVDatabase() override;

    /// Never empty and never changes; two databases are the same when these are equal.
    virtual QString UUID() const = 0;
    /// What the person calls it. A change is posted as QVDatabaseRenamedNotification as well.
    virtual QString name() const = 0;

Q_SIGNALS:
    void nameChanged();
};
