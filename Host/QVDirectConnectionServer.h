#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Host/ClassRegistry.h"

class NetService;

/// The built-in server to which other computers connect directly. Main thread.
class HOST_EXPORT QVDirectConnectionServer : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool serving READ isServing NOTIFY servingChanged)
    Q_PROPERTY(quint16 port READ port WRITE setPort NOTIFY portChanged)
public:
    /// Registered as "QVDirectConnectionServer".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The scheme of direct-connection locations.
        virtual QString URLScheme() const = 0;
        virtual quint16 defaultPort() const = 0;
        /// The DNS-SD service type under which servers announce themselves.
        virtual QString bonjourServiceType() const = 0;
        /// The service name of the keychain items of authorized clients, one item for each.
        virtual QString clientAuthorizationServiceName() const = 0;
    };
    static QString URLScheme();
    static quint16 defaultPort();
    static QString bonjourServiceType();

    ~QVDirectConnectionServer() override;

    virtual quint16 port() const = 0;
    virtual void setPort(quint16 port) = 0;
    virtual bool isServing() const = 0;
    virtual void startServing() = 0;
    virtual void stopServing() = 0;
    /// This computer's own announcement; nullptr while there is none.
    virtual std::shared_ptr<NetService> bonjourService() const = 0;

Q_SIGNALS:
    void servingChanged();
    void portChanged();
};

/// The symbol that the host exports for the keychain.
HOST_EXPORT QString QVDirectConnectionClientAuthorizationServiceName();
