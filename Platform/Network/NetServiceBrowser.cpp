#include "Platform/Network/NetServiceBrowser.h"

#include "Platform/Network/NetServiceSearch.h"

NetServiceBrowser::NetServiceBrowser() = default;

NetServiceBrowser::~NetServiceBrowser() = default;

void NetServiceBrowser::searchForServicesOfTypeInDomain(const QString &type,
                                                        const QString &domain) {
    m_search = std::make_unique<NetServiceSearch>(*this, type, domain);
}

void NetServiceBrowser::stop() {
    m_search.reset();
}
