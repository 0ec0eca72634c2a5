#include "Platform/Network/NetServiceDelegate.h"

NetServiceDelegate::~NetServiceDelegate() = default;

void NetServiceDelegate::netServiceDidResolveAddress(
    const std::shared_ptr<NetService> & /*service*/) {}

void NetServiceDelegate::netServiceDidNotResolve(const std::shared_ptr<NetService> & /*service*/) {}

void NetServiceDelegate::netServiceDidPublish(const std::shared_ptr<NetService> & /*service*/) {}
