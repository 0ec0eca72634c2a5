#pragma once

#include <memory>

#include "Platform/PlatformExport.h"

class NetService;
class NetServiceBrowser;

/// Who is told which services come and go. Main thread, from the event loop. With `moreComing`
/// another call follows at once. The browser may be deleted within a call; nothing follows then.
class PLATFORM_EXPORT NetServiceBrowserDelegate {
public:
    virtual ~NetServiceBrowserDelegate();

    virtual void netServiceBrowserDidFindServiceMoreComing(
        NetServiceBrowser *browser, const std::shared_ptr<NetService> &service,
        bool moreComing) = 0;
    /// `service` is the very object that was found.
    virtual void netServiceBrowserDidRemoveServiceMoreComing(
        NetServiceBrowser *browser, const std::shared_ptr<NetService> &service,
        bool moreComing) = 0;
};
