#include "Engine/Stores/Http/HttpClient.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpConnection.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/LocationSchemes.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int MostRedirections = 5;

bool isRedirection(int status) {
    return status == HttpStatus::MovedPermanently || status == HttpStatus::Found ||
           status == HttpStatus::TemporaryRedirect || status == HttpStatus::PermanentRedirect;
}

bool areOfOneServer(const QUrl &one, const QUrl &other) {
    const auto port = [](const QUrl &URL) {
        return URL.port(URL.scheme() == LocationSchemes::Https ? 443 : 80);
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

HttpClient::HttpClient() : HttpClient(Options()) {}

HttpClient::HttpClient(Options options) : m_options(std::move(options)) {}

HttpClient::~HttpClient() = default;

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
    const std::optional<SecretBytes> value =
        authentication.authorization(credential, request.method, targetOf(request.URL));
    if (!value) {
        return {};
    }
    request.authorization = *value;
    return request;
}

Expected<HttpClient::Response> HttpClient::sendAuthorized(const Request &request,
                                                          const EngineFuture &future) {
    Expected<Response> first = exchange(withKnownLogin(request), future);
    if (!first || first->status != HttpStatus::Unauthorized || !m_options.credential) {
        return first;
    }
    Expected<std::optional<Login>> login = loginFor(request, *first);
    if (!login) {
        return failure(login.error());
    }
    const std::optional<Request> authorized = *login ? (*login)->authorized(request) : std::nullopt;
    if (!authorized) {
        return first;
    }
    Expected<Response> second = exchange(*authorized, future);
    const bool isAccepted = second && second->status != HttpStatus::Unauthorized;
    const std::lock_guard lock(m_mutex);
    m_login = isAccepted ? std::move(*login) : std::nullopt;
    return second;
}

HttpClient::Request HttpClient::withKnownLogin(const Request &request) {
    const std::lock_guard lock(m_mutex);
    const bool isKnown = m_login && areOfOneServer(m_login->server, request.URL);
    return isKnown ? m_login->authorized(request).value_or(request) : request;
}

Expected<std::optional<HttpClient::Login>> HttpClient::loginFor(const Request &request,
                                                                const Response &challenge) const {
    const auto authentication =
        HttpAuthentication::fromChallenges(challenge.header("WWW-Authenticate"));
    if (!authentication) {
        return std::nullopt;
    }
    return m_options.credential(authentication->scheme())
        .map([&](const std::optional<UrlCredential> &credential) {
            return credential ? std::optional<Login>({request.URL, *authentication, *credential})
                              : std::nullopt;
        });
}

Expected<HttpClient::Response> HttpClient::exchange(const Request &request,
                                                    const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    std::unique_ptr<HttpConnection> connection = takeConnection();
    Expected<Response> response = connection->exchange(request, future);
    const std::lock_guard lock(m_mutex);
    m_idleConnections.push_back(std::move(connection));
    return response;
}

std::unique_ptr<HttpConnection> HttpClient::takeConnection() {
    const std::lock_guard lock(m_mutex);
    if (m_idleConnections.empty()) {
        return std::make_unique<HttpConnection>(m_options);
    }
    std::unique_ptr<HttpConnection> connection = std::move(m_idleConnections.back());
    m_idleConnections.pop_back();
    return connection;
}
