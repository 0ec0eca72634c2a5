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

/// The request target that is sent for `URL` (RFC 9112, section 3.2.1).
QByteArray targetOf(const QUrl &URL) {
    const QByteArray target = URL.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority |
                                            QUrl::RemoveFragment | QUrl::NormalizePathSegments);
    return target.startsWith('/') ? target : '/' + target;
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
        Expected<Response> response = sendAuthorized(current, future);
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

std::optional<HttpClient::Request> HttpClient::Login::authorized(Request request) {
    const std::optional<QByteArray> value =
        authentication.authorization(credential, request.method, targetOf(request.URL));
    if (!value) {
        return {};
    }
    request.headers.append({"Authorization", *value});
    return request;
}

Expected<HttpClient::Response> HttpClient::sendAuthorized(const Request &request,
                                                          const EngineFuture &future) {
    Expected<Response> first = exchange(withKnownLogin(request), future);
    if (!first || first->status != HttpStatus::Unauthorized || !m_options.credential) {
        return first;
    }
    std::optional<Login> login = loginFor(request, *first);
    const std::optional<Request> authorized = login ? login->authorized(request) : std::nullopt;
    if (!authorized) {
        return first;
    }
    Expected<Response> second = exchange(*authorized, future);
    const bool isAccepted = second && second->status != HttpStatus::Unauthorized;
    const std::lock_guard lock(m_mutex);
    m_login = isAccepted ? std::move(login) : std::nullopt;
    return second;
}

HttpClient::Request HttpClient::withKnownLogin(const Request &request) {
    const std::lock_guard lock(m_mutex);
    const bool isKnown = m_login && areOfOneServer(m_login->server, request.URL);
    return isKnown ? m_login->authorized(request).value_or(request) : request;
}

std::optional<HttpClient::Login> HttpClient::loginFor(const Request &request,
                                                      const Response &challenge) const {
    const auto authentication =
        HttpAuthentication::fromChallenges(challenge.header("WWW-Authenticate"));
    if (!authentication) {
        return {};
    }
    const std::optional<UrlCredential> credential = m_options.credential(authentication->scheme());
    return credential ? std::optional<Login>({request.URL, *authentication, *credential})
                      : std::nullopt;
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
