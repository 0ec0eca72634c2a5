#include "Engine/Stores/Http/DesktopProxy.h"

#include <QtCore/QUrl>
#include <QtNetwork/QNetworkProxyFactory>

#include "Engine/Stores/Http/LoopbackHost.h"

namespace {

/// Returns the scheme with which libcurl speaks to a proxy; null if it is reached otherwise.
const char *schemeOf(QNetworkProxy::ProxyType type) {
    switch (type) {
        case QNetworkProxy::HttpProxy:
        case QNetworkProxy::HttpCachingProxy:
            return "http";
        case QNetworkProxy::Socks5Proxy:
            // The proxy resolves the name of the server.
            return "socks5h";
        default:
            return nullptr;
    }
}

}  // namespace

DesktopProxy DesktopProxy::forURL(const QUrl &URL) {
    if (isLoopbackHost(URL.host())) {
        return {};
    }
    const QNetworkProxy proxy =
        QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(URL)).value(0);
    const char *scheme = schemeOf(proxy.type());
    if (!scheme) {
        return {};
    }
    QUrl address;
    address.setScheme(QString::fromLatin1(scheme));
    address.setHost(proxy.hostName());
    address.setPort(proxy.port());
    return {.address = address.toEncoded(),
            .user = proxy.user().toUtf8(),
            .password = proxy.password().toUtf8()};
}
