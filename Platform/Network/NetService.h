#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Platform/KeyValue/SharedPointer.h"
#include "Platform/PlatformExport.h"

class NetServiceDelegate;
class NetServicePublication;
class NetServiceResolution;

/// A service on the local network (DNS-based service discovery, RFC 6763): either one that a
/// browser has found and that can be resolved, or one of this computer that can be published. It
/// needs the Avahi daemon: without it, resolving fails at its timeout, and publishing waits until
/// the daemon runs. Shared ownership: create it with std::make_shared. Must be used on the main
/// thread. Calls return at once.
class PLATFORM_EXPORT NetService : public QObject, public std::enable_shared_from_this<NetService> {
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(QString type READ type CONSTANT)
    Q_PROPERTY(QString domain READ domain)
    Q_PROPERTY(QString hostName READ hostName)
    Q_PROPERTY(quint16 port READ port)
public:
    /// Creates a service that is neither resolved nor published. An empty `domain` selects the
    /// default domain. `type` is a service type such as "_http._tcp". `name` is a name for users,
    /// at most 63 bytes of UTF-8 (RFC 6763, section 4.1.1); a longer one is truncated when it is
    /// published, and an empty one is replaced by the host name. `port` is 0 for a service that is
    /// to be resolved.
    NetService(const QString &domain, const QString &type, const QString &name, quint16 port = 0);
    /// Stops, without notifying the delegate.
    ~NetService() override;

    /// Returns the name for users. Name, type and domain identify the service. Publishing changes
    /// the name if another service uses it.
    QString name() const { return m_name; }
    /// Returns the service type. Constant.
    QString type() const { return m_type; }
    /// Returns the domain. Publishing sets an empty domain to the default domain.
    QString domain() const { return m_domain; }
    /// Returns whether both objects represent the same service: name, type and domain are equal,
    /// compared exactly. False if `other` is null.
    bool isEqual(const NetService *other) const;

    /// Returns the host name, usually one that ends in ".local" (see LocalHostName), or an empty
    /// text if the service has not been resolved. Everything that a service announces comes from
    /// the network and is not authenticated.
    QString hostName() const { return m_hostName; }
    /// Returns the port, or 0 if it is not known. A later failure to resolve does not change it.
    quint16 port() const { return m_port; }

    /// The delegate is not owned and may be null. It must be reset before it is destroyed.
    NetServiceDelegate *delegate() const { return m_delegate; }
    /// Takes effect for everything that was not delivered yet.
    void setDelegate(NetServiceDelegate *delegate) { m_delegate = delegate; }

    /// Looks up host name and port, and notifies the delegate once, later, of success or failure.
    /// Calling it again restarts the look-up. A timeout of 0 or less fails at the next turn of the
    /// event loop; one above a day is reduced to a day. The service must be kept alive meanwhile:
    /// destroying it ends the look-up. The service must be owned by a std::shared_ptr. May be
    /// called while it is published.
    void resolveWithTimeout(double seconds);
    /// Announces the service until stop() is called or the service is destroyed; again whenever the
    /// daemon is restarted. The delegate is notified of each announcement. A name that another
    /// service uses is replaced by "name #2" and so on, which emits nameChanged() before the
    /// delegate is notified. A service that the daemon refuses, for example because of an invalid
    /// type, is logged and not announced. Idempotent.
    void publish();
    /// Ends resolving and publishing. The delegate is not notified of that, nor of anything that
    /// was still pending.
    void stop();

Q_SIGNALS:
    /// Emitted when publishing has changed the name; possibly within publish().
    void nameChanged();

private:
    friend class NetServicePublication;
    friend class NetServiceResolution;

    /// Called by the resolution that succeeded.
    void setAddress(const QString &hostName, quint16 port);
    /// Sets the name and domain under which the service is published, and announces the name if it
    /// changes.
    void setPublished(const QString &name, const QString &domain);

    QString m_name;
    const QString m_type;
    QString m_domain;
    QString m_hostName;
    quint16 m_port;
    NetServiceDelegate *m_delegate = nullptr;
    /// Null unless the service is being resolved.
    std::unique_ptr<NetServiceResolution> m_resolution;
    /// Null unless the service is published.
    std::unique_ptr<NetServicePublication> m_publication;
};
