#include "Platform/Network/NetServiceBrowserDelegate.h"

NetServiceBrowserDelegate::~NetServiceBrowserDelegate() = default;
