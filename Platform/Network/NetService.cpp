#include "Platform/Network/NetService.h"

#include "Platform/KeyValue/KeyValue.h"
#include "Platform/Network/NetServicePublication.h"
#include "Platform/Network/NetServiceResolution.h"

NetService::NetService(const QString &domain, const QString &type, const QString &name,
                       quint16 port)
    : m_name(name), m_type(type), m_domain(domain), m_port(port) {}

NetService::~NetService() = default;

bool NetService::isEqual(const NetService *other) const {
    return other && m_name == other->m_name && m_type == other->m_type &&
           m_domain == other->m_domain;
}

void NetService::resolveWithTimeout(double seconds) {
    m_resolution = std::make_unique<NetServiceResolution>(*this, seconds);
}

void NetService::publish() {
    if (!m_publication) {
        m_publication = std::make_unique<NetServicePublication>(*this);
    }
}

void NetService::stop() {
    m_resolution.reset();
    m_publication.reset();
}

void NetService::setAddress(const QString &hostName, quint16 port) {
    m_hostName = hostName;
    m_port = port;
}

void NetService::setPublished(const QString &name, const QString &domain) {
    m_domain = domain;
    if (m_name != name) {
        m_name = name;
        KeyValue::announce<&NetService::nameChanged>(this);
    }
}
