#pragma once

#include <QtCore/QObject>
#include <memory>

#include "Platform/PlatformExport.h"

class NetServiceBrowserDelegate;

/// Finds the services of one type on the local network, through the Avahi daemon. A daemon that
/// stops takes all services with it; when it comes back they are found again. Where there is none
/// nothing is found until there is. Main thread.
///
/// What one turn of the event loop brings is delivered together, in order: each call but the last
/// says that more is coming. A service is found once, on however many interfaces it is seen, and
/// removed when it is gone from all of them.
class PLATFORM_EXPORT NetServiceBrowser : public QObject {
    Q_OBJECT
public:
    NetServiceBrowser();
    /// Ends the search; nothing is delivered any more.
    ~NetServiceBrowser() override;

    /// Not owned: who goes sets it to nullptr, or deletes the browser, before.
    NetServiceBrowserDelegate *delegate() const { return m_delegate; }
    void setDelegate(NetServiceBrowserDelegate *delegate) { m_delegate = delegate; }

    /// Searches from now on; an earlier search ends, without removing what it had found. `domain`:
    /// empty for the default ones. The delegate is never called within this call.
    void searchForServicesOfTypeInDomain(const QString &type, const QString &domain);
    void stop();

private:
    class Search;

    NetServiceBrowserDelegate *m_delegate = nullptr;
    std::unique_ptr<Search> m_search;
};
