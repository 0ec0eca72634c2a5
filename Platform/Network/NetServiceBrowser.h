#pragma once

#include <QtCore/QObject>
#include <cstddef>
#include <memory>

#include "Platform/PlatformExport.h"

class NetServiceBrowserDelegate;
class NetServiceSearch;

/// Finds the services of one type on the local network through the Avahi daemon. If the daemon
/// stops, all services are reported as removed, and as found again when it is back; if it is not
/// running, nothing is found until it is started. Must be used on the main thread.
///
/// Events that arrive in one turn of the event loop are delivered together and in order; every call
/// except the last one says that more are coming. A service is reported as found once, regardless
/// of the number of interfaces on which it is seen, and as removed when it has disappeared from all
/// of them.
class PLATFORM_EXPORT NetServiceBrowser : public QObject {
    Q_OBJECT
public:
    /// Maximum number of services that are reported at a time. Others are ignored, as are those
    /// with invalid names.
    static constexpr std::size_t MostServices = 1000;

    /// Searches nothing yet.
    NetServiceBrowser();
    /// Ends the search. The delegate is not called any more, also if this is destroyed within a
    /// call of the delegate.
    ~NetServiceBrowser() override;

    /// The delegate is not owned and may be null; events are then dropped. It must be reset, or the
    /// browser be destroyed, before the delegate is destroyed.
    NetServiceBrowserDelegate *delegate() const { return m_delegate; }
    void setDelegate(NetServiceBrowserDelegate *delegate) { m_delegate = delegate; }

    /// Starts a search, which lasts until stop(), another search, or the destructor. A former
    /// search ends without reporting its services as removed. An empty `domain` selects the default
    /// domains. `type` is a service type such as "_http._tcp" (RFC 6763, section 7); an invalid one
    /// finds nothing. The delegate is called later, from the event loop. The search has no end of
    /// its own and no error: if nothing is found, no call is made.
    void searchForServicesOfTypeInDomain(const QString &type, const QString &domain);
    /// Ends the search without reporting services as removed; events that were not delivered are
    /// dropped. The services stay usable. Has no effect if there is none.
    void stop();

private:
    NetServiceBrowserDelegate *m_delegate = nullptr;
    /// Null unless a search is running.
    std::unique_ptr<NetServiceSearch> m_search;
};
