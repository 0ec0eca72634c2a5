#include "Engine/Stores/Http/HttpClient.h"

#include <QtNetwork/QNetworkAccessManager>
#include <algorithm>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpExchange.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int MostRedirections = 5;

bool isRedirection(int status) {
    return status == HttpStatus::MovedPermanently || status == HttpStatus::Found ||
           status == HttpStatus::TemporaryRedirect || status == HttpStatus::PermanentRedirect;
}

bool areOfOneServer(const QUrl &one, const QUrl &other) {
    const auto port = [](const QUrl &URL) {
        return URL.port(URL.scheme() == QStringLiteral("https") ? 443 : 80);
    };
    return one.scheme() == other.scheme() && one.host() == other.host() && port(one) == port(other);
}

Error redirectionRefused(const QUrl &from, const QUrl &to) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The server “%1” redirects to “%2”. If that is correct, "
                                           "edit the location and enter it as the address.")
                           .arg(from.authority(), to.toString(QUrl::RemoveUserInfo)));
}

}  // namespace

QByteArray HttpClient::Response::header(const QByteArray &name) const {
    const auto found = std::find_if(headers.begin(), headers.end(), [&](const Header &header) {
        return header.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == headers.end() ? QByteArray() : found->value;
}

HttpClient::HttpClient() : HttpClient(Options()) {}

HttpClient::HttpClient(Options options)
    : m_options(std::move(options)), m_manager(new QNetworkAccessManager) {
    m_manager->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_manager, &QObject::deleteLater);
    m_thread.setObjectName(QStringLiteral("HttpClient"));
    m_thread.start();
}

HttpClient::~HttpClient() {
    m_thread.quit();
    m_thread.wait();
}

Expected<HttpClient::Response> HttpClient::send(const Request &request,
                                                const EngineFuture &future) {
    Request current = request;
    current.URL.setUserInfo({});
    for (int hop = 0; hop <= MostRedirections; ++hop) {
        Expected<Response> response = exchange(current, future);
        const QByteArray location = response ? response->header("Location") : QByteArray();
        if (!response || !isRedirection(response->status) || location.isEmpty()) {
            return response;
        }
        const QUrl target = current.URL.resolved(QUrl::fromEncoded(location));
        if (!areOfOneServer(current.URL, target)) {
            return failure(redirectionRefused(current.URL, target));
        }
        current.URL = target.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    }
    return failure(
        engineError(EngineErrorCode::StoreUnreachable,
                    "The server “%1” redirects too often. Check the address of the location.",
                    current.URL.authority()));
}

Expected<HttpClient::Response> HttpClient::exchange(const Request &request,
                                                    const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    auto *const exchange = new HttpExchange(*m_manager, m_options, request);
    std::future<Expected<Response>> result = exchange->result();
    exchange->moveToThread(&m_thread);
    QMetaObject::invokeMethod(exchange, &HttpExchange::start, Qt::QueuedConnection);
    {
        const std::stop_callback abortion(future.cancellation(), [exchange] {
            QMetaObject::invokeMethod(
                exchange, [exchange] { exchange->abort(operationCancelled()); },
                Qt::QueuedConnection);
        });
        result.wait();
    }
    exchange->deleteLater();
    return result.get();
}
