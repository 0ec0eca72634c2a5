#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantList>
#include <memory>

#include "Host/ClassRegistry.h"

class NetService;

/// The built-in server to which other computers connect directly. The host owns it. It must be used
/// on the main thread; it serves its clients on threads of its own.
class HOST_EXPORT QVDirectConnectionServer : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool serving READ isServing NOTIFY servingChanged)
    Q_PROPERTY(quint16 port READ port WRITE setPort NOTIFY portChanged)
    Q_PROPERTY(QString addressText READ addressText NOTIFY addressTextChanged)
    Q_PROPERTY(QVariantList databases READ databases NOTIFY databasesChanged)
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVDirectConnectionServer"};
        /// Implements QVDirectConnectionServer::URLScheme().
        virtual QString URLScheme() const = 0;
        /// Implements QVDirectConnectionServer::defaultPort().
        virtual quint16 defaultPort() const = 0;
        /// Implements QVDirectConnectionServer::bonjourServiceType().
        virtual QString bonjourServiceType() const = 0;
        /// Implements QVDirectConnectionClientAuthorizationServiceName(). Never empty.
        virtual QString clientAuthorizationServiceName() const = 0;
    };
    /// Returns the URL scheme of direct-connection locations, in lower case; a null text if the
    /// host has no class "QVDirectConnectionServer".
    static QString URLScheme();
    /// Returns the port that a server uses unless the user chooses another; 0 only if the host has
    /// no such class.
    static quint16 defaultPort();
    /// Returns the service type (RFC 6763, section 7) under which servers are announced on the
    /// local network, such as "_http._tcp"; a null text if the host has no such class.
    static QString bonjourServiceType();

    ~QVDirectConnectionServer() override;

    /// Returns the TCP port on which the server listens, or will listen once it is started. Never
    /// 0.
    virtual quint16 port() const = 0;
    /// Sets the port and emits portChanged(), also if the port stays the same. 0 selects
    /// defaultPort(). If the server is serving and the port differs, the server is restarted, which
    /// closes its connections; if it cannot listen on the new port, it is stopped and the error
    /// presented as by startServing(). The port is not saved. Blocks as these two functions do.
    virtual void setPort(quint16 port) = 0;
    /// Returns whether the server accepts connections.
    virtual bool isServing() const = 0;
    /// Starts the server; when the call returns, isServing() returns whether that succeeded. If it
    /// failed, for example because another program uses the port, the host presents the error to
    /// the user later, from the event loop. Emits servingChanged() in both cases. Has no effect
    /// while the server is serving. Blocks for a moment to open the port and, the first time, to
    /// create a key and a certificate.
    virtual void startServing() = 0;
    /// Closes all connections, withdraws the announcement and emits servingChanged(). Blocks for a
    /// short time at most. Has no effect unless the server is serving.
    virtual void stopServing() = 0;
    /// Returns the announcement of this server on the local network, or nullptr unless the server
    /// is serving. Its name may change while it is published. Shared ownership.
    virtual std::shared_ptr<NetService> bonjourService() const = 0;
    /// Returns, in words for the user, under which name, address and port other computers find the
    /// server; empty unless it is serving. Optional: the default implementation returns an empty
    /// text.
    virtual QString addressText() const;
    /// Returns the databases that the user can choose to serve, each a
    /// std::shared_ptr<QVServedDatabase>. Optional: the default implementation returns an empty
    /// list, which means that the host serves all databases.
    virtual QVariantList databases() const;
    /// Returns, in words for the user, when the client with this keychain account connected last.
    /// The same for all clients that have never connected. Optional: the default implementation
    /// returns an empty text.
    virtual QString lastConnectionText(const QString &client) const;

Q_SIGNALS:
    /// Emitted after the server was started or stopped, or could not be started.
    void servingChanged();
    /// Emitted by setPort().
    void portChanged();
    /// Emitted after addressText() has changed. Optional.
    void addressTextChanged();
    /// Emitted after databases() has changed. Optional.
    void databasesChanged();
};

/// Returns the service name of the keychain items of authorized clients, one item for each client,
/// or a null string if the host has no class "QVDirectConnectionServer".
HOST_EXPORT QString QVDirectConnectionClientAuthorizationServiceName();
