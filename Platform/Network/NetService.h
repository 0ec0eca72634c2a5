#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Platform/KeyValue/SharedPointer.h"
#include "Platform/PlatformExport.h"

class NetServiceDelegate;
class NetServicePublication;
class NetServiceResolution;

/// A service on the local network: one that a browser found, to be resolved, or one of our own, to
/// be published. DNS service discovery (RFC 6763) through the Avahi daemon; where that is not
/// running, resolving runs into its time-out and publishing waits for it. Always shared; main
/// thread.
class PLATFORM_EXPORT NetService : public QObject, public std::enable_shared_from_this<NetService> {
    Q_OBJECT
    Q_PROPERTY(QString name READ name NOTIFY nameChanged)
    Q_PROPERTY(QString type READ type CONSTANT)
    Q_PROPERTY(QString domain READ domain)
    Q_PROPERTY(QString hostName READ hostName)
    Q_PROPERTY(quint16 port READ port)
public:
    /// `domain`: empty for the default one. `type`: such as "_http._tcp". `name`: for a person to
    /// read, up to 63 bytes of UTF-8 (RFC 6763, section 4.1.1); what is longer is cut when it is
    /// published, and an empty one becomes the computer's name. `port` is 0 where it is to be
    /// resolved.
    NetService(const QString &domain, const QString &type, const QString &name, quint16 port = 0);
    ~NetService() override;

    /// These three say which service it is. Publishing may change the name, where another computer
    /// has it, and gives an empty domain its name.
    QString name() const { return m_name; }
    QString type() const { return m_type; }
    QString domain() const { return m_domain; }
    /// Whether both stand for the same service: name, type and domain are equal.
    bool isEqual(const NetService *other) const;

    /// Empty until it was resolved.
    QString hostName() const { return m_hostName; }
    quint16 port() const { return m_port; }

    /// Not owned: who goes sets it to nullptr before.
    NetServiceDelegate *delegate() const { return m_delegate; }
    void setDelegate(NetServiceDelegate *delegate) { m_delegate = delegate; }

    /// Asks for host name and port; the delegate is told later, once. Asking again starts anew.
    void resolveWithTimeout(double seconds);
    /// Announces the service from now on, also when the daemon comes back after a while. Harmless
    /// where it is announced already.
    void publish();
    /// Ends resolving and publishing. Letting the service go does the same.
    void stop();

Q_SIGNALS:
    void nameChanged();

private:
    friend class NetServicePublication;
    friend class NetServiceResolution;

    void setAddress(const QString &hostName, quint16 port);
    void setPublished(const QString &name, const QString &domain);

    QString m_name;
    const QString m_type;
    QString m_domain;
    QString m_hostName;
    quint16 m_port;
    NetServiceDelegate *m_delegate = nullptr;
    std::unique_ptr<NetServiceResolution> m_resolution;
    std::unique_ptr<NetServicePublication> m_publication;
};
