#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"

#include <utility>

#include "Host/PZFuture.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncStore.h"

namespace {

constexpr double ResolutionTimeout = 3.0;

Url directConnectionURL(const QString &host, quint16 port) {
    return Url::fromString(QStringLiteral("%1://%2:%3")
                               .arg(QVDirectConnectionServer::URLScheme(), Url::hostInURL(host))
                               .arg(port));
}

/// Returns whether `service` announces this computer's own server.
bool isOwn(const NetService &service) {
    const QVDirectConnectionServer *server = QVSyncPlugin::plugin()->server();
    const std::shared_ptr<NetService> own = server ? server->bonjourService() : nullptr;
    return own && service.isEqual(own.get());
}

}  // namespace

QVDirectConnectionLocationEditor::QVDirectConnectionLocationEditor(
    const std::shared_ptr<QVSyncLocation> &location)
    : QVSyncLocationEditor(QStringLiteral("QVDirectConnectionLocationEditor"), location) {
    m_browser.setDelegate(this);
    KeyValue::followDependencies(this);
}

QVDirectConnectionLocationEditor::~QVDirectConnectionLocationEditor() {
    for (const auto &service : std::as_const(m_services)) {
        service->setDelegate(nullptr);
    }
}

std::shared_ptr<QVDirectConnectionLocationEditor>
QVDirectConnectionLocationEditor::editorWithSyncLocation(
    const std::shared_ptr<QVSyncLocation> &location) {
    return std::shared_ptr<QVDirectConnectionLocationEditor>(
        new QVDirectConnectionLocationEditor(location));
}

Url QVDirectConnectionLocationEditor::URLWithHost(const QString &host, quint16 port) {
    if (host.isNull()) {
        return {};
    }
    return directConnectionURL(host, port == 0 ? QVDirectConnectionServer::defaultPort() : port);
}

QString QVDirectConnectionLocationEditor::host() const {
    const Url URL = location()->URL();
    return URL.isNil() ? QString() : URL.host();
}

void QVDirectConnectionLocationEditor::setHost(const QString &host) {
    // A text field is empty, but never null.
    location()->setURL(URLWithHost(host.isEmpty() ? QString() : host, port()));
}

bool QVDirectConnectionLocationEditor::canAccept() const {
    return hasHost() || !shouldShowCancelButton();
}

quint16 QVDirectConnectionLocationEditor::port() const {
    const quint16 port = location()->URL().port().value_or(0);
    return port == 0 ? QVDirectConnectionServer::defaultPort() : port;
}

void QVDirectConnectionLocationEditor::setPort(quint16 port) {
    location()->setURL(URLWithHost(host(), port));
}

void QVDirectConnectionLocationEditor::awakeFromNib() {
    m_browser.searchForServicesOfTypeInDomain(QVDirectConnectionServer::bonjourServiceType(),
                                              QString());
}

void QVDirectConnectionLocationEditor::acceptURLWithNetService(
    const std::shared_ptr<NetService> &service) {
    service->resolveWithTimeout(ResolutionTimeout);
}

void QVDirectConnectionLocationEditor::selectURLWithNetServiceFromTableView(TableView *tableView) {
    const int row = tableView->clickedRow();
    if (row != -1) {
        acceptURLWithNetService(m_services.at(row));
    }
}

void QVDirectConnectionLocationEditor::netServiceBrowserDidFindServiceMoreComing(
    NetServiceBrowser * /*browser*/, const std::shared_ptr<NetService> &service, bool moreComing) {
    if (!isOwn(*service)) {
        service->setDelegate(this);
        m_services.append(service);
    }
    announceServicesUnless(moreComing);
}

void QVDirectConnectionLocationEditor::netServiceBrowserDidRemoveServiceMoreComing(
    NetServiceBrowser * /*browser*/, const std::shared_ptr<NetService> &service, bool moreComing) {
    service->setDelegate(nullptr);
    m_services.removeIf([&](const auto &other) {
        if (!other->isEqual(service.get())) {
            return false;
        }
        other->setDelegate(nullptr);
        return true;
    });
    announceServicesUnless(moreComing);
}

void QVDirectConnectionLocationEditor::announceServicesUnless(bool moreComing) {
    if (!moreComing) {
        KeyValue::announce<&QVDirectConnectionLocationEditor::servicesChanged>(this);
    }
}

void QVDirectConnectionLocationEditor::netServiceDidResolveAddress(
    const std::shared_ptr<NetService> &service) {
    location()->setURL(directConnectionURL(service->hostName(), service->port()));
}

void QVDirectConnectionLocationEditor::acceptModalSheet(QObject *sender) {
    const auto self = shared_from_this();
    const bool isFirst = !std::exchange(m_isAccepted, true);
    QVSyncLocationEditor::acceptModalSheet(sender);
    if (isFirst && !location()->URL().isNil()) {
        attemptPair();
    }
}

void QVDirectConnectionLocationEditor::attemptPair() {
    const std::shared_ptr<QVSyncStore> store = location()->createStore();
    const std::shared_ptr<PZFuture> future = PZFuture::future();
    const auto closeAfterFetch = [store, future](const auto & /*databases*/,
                                                 const auto & /*error*/) {
        future->passControlToFuture(store->closeWithCompletionHandler([](const auto &) {}));
    };
    const auto opened =
        store->openWithCompletionHandler([store, closeAfterFetch](const auto &error) {
            if (!error) {
                store->fetchDatabasesWithCompletionHandler(closeAfterFetch);
            }
        });
    future->cascadeCancellationToFuture(opened);
}
