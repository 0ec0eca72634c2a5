#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpMessage.h"
#include "Engine/Stores/Http/HttpOptions.h"

class HttpConnection;

/// Sends requests to HTTP servers (RFC 9110) for threads that may wait. Keeps connections, and the
/// login that a server has accepted, until it is destroyed. May be created and destroyed on any
/// thread; several threads may send at the same time. Nothing is remembered between two clients: no
/// cookies, no cached responses, no proxies, and no settings of the environment are used.
class HttpClient {
public:
    using Timeouts = HttpTimeouts;
    using Options = HttpOptions;
    using Header = HttpHeader;
    using Request = HttpRequest;
    using Response = HttpResponse;

    HttpClient();
    /// Does not connect yet; never fails. What the functions of `options` use must stay valid until
    /// the client is destroyed.
    explicit HttpClient(Options options);
    /// Closes all connections. Must not be called while another thread is in send().
    ~HttpClient();
    HttpClient(const HttpClient &) = delete;
    HttpClient &operator=(const HttpClient &) = delete;

    /// Sends `request` and returns the response, regardless of its status. Blocks until the
    /// response is complete, a timeout passes, or `future` is cancelled, which takes effect at
    /// once; must not be called on the main thread. If it fails, the server may have processed the
    /// request all the same.
    ///
    /// Follows at most 5 redirects (301, 302, 307, 308) with the same method and body, but never to
    /// another scheme, host or port, which fails. Responds to one challenge of each exchange (see
    /// HttpAuthentication), and sends a credential that the server has accepted with the following
    /// requests to it; if the server challenges it again, the credential is asked for again.
    ///
    /// Errors: StoreUnreachable if the server cannot be reached, redirects too often or to another
    /// server, or does not send a valid response; CertificateUntrusted; BlobRefused if the body of
    /// any response is longer than the limit; Cancelled; and those of the option `credential`.
    Expected<Response> send(const Request &request, const EngineFuture &future);

private:
    /// A credential that a server has accepted.
    struct Login {
        /// A URL of the server: scheme, host and port are compared.
        QUrl server;
        HttpAuthentication authentication;
        UrlCredential credential;

        /// Returns `request` with the credential; empty if the scheme cannot transport it.
        std::optional<Request> authorized(Request request);
    };

    /// Sends one hop, responding to a challenge if there is one.
    Expected<Response> sendAuthorized(const Request &request, const EngineFuture &future);
    /// Returns `request`, with the accepted credential if it is for the same server.
    Request withKnownLogin(const Request &request);
    /// Returns the answer to `challenge`; empty if there is no supported scheme or no credential.
    Expected<std::optional<Login>> loginFor(const Request &request,
                                            const Response &challenge) const;
    /// Sends one request and blocks for its response.
    Expected<Response> exchange(const Request &request, const EngineFuture &future);
    /// Returns an idle connection, or a new one; never null.
    std::unique_ptr<HttpConnection> takeConnection();

    const Options m_options;
    std::mutex m_mutex;
    // Guarded by `m_mutex`.
    std::optional<Login> m_login;
    std::vector<std::unique_ptr<HttpConnection>> m_idleConnections;
};
