#pragma once

#include <memory>

#include "Platform/PlatformExport.h"

class NetService;

/// Who is told what becomes of a service. Main thread, from the event loop. The service may be
/// told anything and be let go within a call.
class PLATFORM_EXPORT NetServiceDelegate {
public:
    virtual ~NetServiceDelegate();

    /// `service` has its host name and port now.
    virtual void netServiceDidResolveAddress(const std::shared_ptr<NetService> &service);
    /// The address was not found in time, or there is none; host name and port are as they were.
    virtual void netServiceDidNotResolve(const std::shared_ptr<NetService> &service);
    /// The network knows `service` from now on, by its name as it is now.
    virtual void netServiceDidPublish(const std::shared_ptr<NetService> &service);
};
