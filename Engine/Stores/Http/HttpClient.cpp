#include "Engine/Stores/Http/HttpClient.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpConnection.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"

namespace {

constexpr int MostRedirections = 5;

bool isRedirection(int status) {
    return status == HttpStatus::MovedPermanently || status == HttpStatus::Found ||
           status == HttpStatus::TemporaryRedirect || status == HttpStatus::PermanentRedirect;
}

Error redirectionRefused(const QUrl &from, const QUrl &to) {
    // No address that a user enters is longer.
    constexpr qsizetype longest = 1000;
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("The server “%1” redirects to “%2”. If that is correct, "
                                           "edit the location and enter it as the address.")
                           .arg(from.authority(), to.toString(QUrl::RemoveUserInfo).left(longest)));
}

}  // namespace

HttpClient::HttpClient() : HttpClient(Options()) {}

HttpClient::HttpClient(Options options, std::shared_ptr<HttpSession> session)
    : m_options(std::move(options)), m_session(std::move(session)) {}

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
        if (!HttpSession::areOfOneServer(current.URL, target)) {
            return failure(redirectionRefused(current.URL, target));
        }
        current.URL = target.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    }
    return failure(
        engineError(EngineErrorCode::StoreUnreachable,
                    "The server “%1” redirects too often. Check the address of the location.",
                    current.URL.authority()));
}

Expected<HttpClient::Response> HttpClient::sendAuthorized(const Request &request,
                                                          const EngineFuture &future) {
    const int authentications = m_authentications;
    Expected<Response> first = exchange(withKnownLogin(request, future), future);
    if (!first || first->status != HttpStatus::Unauthorized || !m_options.credential) {
        return first;
    }
    return authenticate(request, std::move(*first), authentications, future);
}

Expected<HttpClient::Response> HttpClient::authenticate(const Request &request, Response challenge,
                                                        int authentications,
                                                        const EngineFuture &future) {
    for (;;) {
        std::unique_lock authenticating(m_authenticating);
        if (m_authentications == authentications) {
            return authenticateNow(request, challenge, future);
        }
        authentications = m_authentications;
        authenticating.unlock();
        if (!m_session->scheme(request.URL)) {
            return challenge;
        }
        Expected<Response> response = exchange(withKnownLogin(request, future), future);
        if (!response || response->status != HttpStatus::Unauthorized) {
            return response;
        }
        challenge = std::move(*response);
    }
}

Expected<HttpClient::Response> HttpClient::authenticateNow(const Request &request,
                                                           const Response &challenge,
                                                           const EngineFuture &future) {
    auto authentication = HttpAuthentication::fromChallenges(challenge.header("WWW-Authenticate"));
    if (!authentication) {
        return challenge;
    }
    const Expected<std::optional<UrlCredential>> credential =
        m_options.credential(authentication->scheme(), future.cancellation());
    if (!credential) {
        return failure(credential.error());
    }
    const std::optional<SecretBytes> authorization =
        *credential ? authentication->authorization(**credential, request.method,
                                                    HttpSession::targetOf(request.URL))
                    : std::nullopt;
    if (!authorization) {
        return challenge;
    }
    Request authorized = request;
    authorized.authorization = *authorization;
    Expected<Response> response = exchange(authorized, future);
    if (response && response->status != HttpStatus::Unauthorized) {
        setCredential(authentication->scheme(), **credential);
        m_session->setAuthentication(request.URL, *authentication);
    } else {
        m_session->forgetAuthentication();
    }
    // Without a response it is not known whether the server would have accepted it.
    m_authentications += response ? 1 : 0;
    return response;
}

HttpClient::Request HttpClient::withKnownLogin(const Request &request, const EngineFuture &future) {
    const std::optional<Scheme> scheme = m_session->scheme(request.URL);
    const std::optional<UrlCredential> credential =
        scheme && m_options.credential ? knownCredential(*scheme, future) : std::nullopt;
    if (!credential) {
        return request;
    }
    Request authorized = request;
    authorized.authorization =
        m_session->authorization(*scheme, *credential, request.method, request.URL)
            .value_or(request.authorization);
    return authorized;
}

std::optional<UrlCredential> HttpClient::knownCredential(Scheme scheme,
                                                         const EngineFuture &future) {
    const std::lock_guard lock(m_mutex);
    if (!m_credential || m_scheme != scheme) {
        // If it cannot be read, the server's next challenge makes that an error.
        m_credential = m_options.credential(scheme, future.cancellation()).value_or(std::nullopt);
        m_scheme = scheme;
    }
    return m_credential;
}

void HttpClient::setCredential(Scheme scheme, const UrlCredential &credential) {
    const std::lock_guard lock(m_mutex);
    m_credential = credential;
    m_scheme = scheme;
}

Expected<HttpClient::Response> HttpClient::exchange(const Request &request,
                                                    const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    std::unique_ptr<HttpConnection> connection = takeConnection();
    Expected<Response> response = connection->exchange(request, m_options, future);
    if (response) {
        m_session->keepConnection(std::move(connection));
    } else if (isEngineError(response.error(), EngineErrorCode::StoreUnreachable)) {
        // The idle connections to this server are probably broken, too.
        m_session->closeConnections();
    }
    return response;
}

std::unique_ptr<HttpConnection> HttpClient::takeConnection() {
    while (std::unique_ptr<HttpConnection> connection = m_session->takeConnection()) {
        if (isAccepted(*connection)) {
            return connection;
        }
    }
    return std::make_unique<HttpConnection>();
}

bool HttpClient::isAccepted(const HttpConnection &connection) {
    {
        const std::lock_guard lock(m_mutex);
        if (connection.chain() == m_acceptedChain) {
            return true;
        }
    }
    const bool isAccepted = connection.isAccepted(m_options);
    if (isAccepted) {
        const std::lock_guard lock(m_mutex);
        m_acceptedChain = connection.chain();
    }
    return isAccepted;
}
