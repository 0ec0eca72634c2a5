#pragma once

#include <memory>

#include "Platform/PlatformExport.h"

class NetService;
class NetServiceBrowser;

/// Receives the events of a NetServiceBrowser on the main thread, from the event loop. If
/// `moreComing` is true, another call follows immediately, so the user interface can be updated
/// after that. The browser may be stopped or destroyed within a call; then no other call follows.
class PLATFORM_EXPORT NetServiceBrowserDelegate {
public:
    /// The browser does not own its delegate, which must be replaced before it is destroyed.
    virtual ~NetServiceBrowserDelegate();

    /// Called when `service` was found. It is shared: keep it to resolve it. It is not resolved,
    /// and has no delegate. `browser` and `service` are never null.
    virtual void netServiceBrowserDidFindServiceMoreComing(
        NetServiceBrowser *browser, const std::shared_ptr<NetService> &service,
        bool moreComing) = 0;
    /// Called when `service` has disappeared. It is the same object that was reported as found.
    /// The arguments are never null. Code that has kept `service` may still use it.
    virtual void netServiceBrowserDidRemoveServiceMoreComing(
        NetServiceBrowser *browser, const std::shared_ptr<NetService> &service,
        bool moreComing) = 0;
};
