#pragma once

#include <memory>

#include "Platform/PlatformExport.h"

class NetService;

/// Receives the events of a NetService on the main thread, from the event loop. Any function of the
/// service may be called, and the service be released, within a call. Implement only the functions
/// that are needed.
class PLATFORM_EXPORT NetServiceDelegate {
public:
    virtual ~NetServiceDelegate();

    /// Called when the host name and port of `service` are known.
    virtual void netServiceDidResolveAddress(const std::shared_ptr<NetService> &service);
    /// Called when the service was not found, or not before the timeout, also because the daemon is
    /// not running. Host name and port are unchanged.
    virtual void netServiceDidNotResolve(const std::shared_ptr<NetService> &service);
    /// Called when `service` is announced on the network under its current name. Called again after
    /// each restart of the daemon, and after each change of the name.
    virtual void netServiceDidPublish(const std::shared_ptr<NetService> &service);
};
