#pragma once

#include <QtNetwork/QSslCertificate>
#include <atomic>
#include <memory>
#include <mutex>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpMessage.h"
#include "Engine/Stores/Http/HttpOptions.h"
#include "Engine/Stores/Http/HttpSession.h"

class HttpConnection;

/// Sends requests to HTTP servers (RFC 9110) for threads that may wait. Keeps the credential that a
/// server has accepted until it is destroyed; connections, and how the server requests the
/// credential, belong to a session, which may outlive the client. May be created and destroyed on
/// any thread; several threads may send at the same time. Nothing else is remembered between two
/// clients: no cookies and no cached responses. Servers are reached through the proxy of the
/// desktop's settings, see DesktopProxy; no other settings of the environment are used.
class HttpClient {
public:
    using Timeouts = HttpTimeouts;
    using Options = HttpOptions;
    using Header = HttpHeader;
    using Request = HttpRequest;
    using Response = HttpResponse;

    HttpClient();
    /// Does not connect yet; never fails. What the functions of `options` use must stay valid until
    /// the client is destroyed. `session` must not be null; others may use it, too. A client that
    /// is given none has one of its own.
    explicit HttpClient(Options options,
                        std::shared_ptr<HttpSession> session = std::make_shared<HttpSession>());
    /// Must not be called while another thread is in send().
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
    /// requests to it, also if it was that of an earlier client of the session; if the server
    /// challenges it again, the credential is read again. Challenges of several threads are
    /// answered one after the other, so that a wrong password is not tried by each of them: what is
    /// accepted or refused for one, is for those that wait.
    ///
    /// Unless it is unrepeatable, a request may arrive twice: it is sent again if the server has
    /// closed a kept connection without sending anything. So it must be one that does no harm then.
    ///
    /// Errors: StoreUnreachable if the server cannot be reached, redirects too often or to another
    /// server, or does not send a valid response; CertificateUntrusted; BlobRefused if the body of
    /// any response is longer than the limit; Cancelled; and those of the option `credential`.
    Expected<Response> send(const Request &request, const EngineFuture &future);

private:
    using Scheme = HttpAuthentication::Scheme;

    /// Sends one hop, responding to a challenge if there is one.
    Expected<Response> sendAuthorized(const Request &request, const EngineFuture &future);
    /// Responds to `challenge`: returns the response to `request` with a credential, or `challenge`
    /// if there is none. `authentications` was their number when the request was sent.
    Expected<Response> authenticate(const Request &request, Response challenge, int authentications,
                                    const EngineFuture &future);
    /// The same; called by one thread at a time.
    Expected<Response> authenticateNow(const Request &request, const Response &challenge,
                                       const EngineFuture &future);
    /// Returns `request`, with the credential if it is known how its server requests it.
    Request withKnownLogin(const Request &request, const EngineFuture &future);
    /// Returns the credential for `scheme`, which is read once; empty if there is none.
    std::optional<UrlCredential> knownCredential(Scheme scheme, const EngineFuture &future);
    void setCredential(Scheme scheme, const UrlCredential &credential);
    /// Sends one request and blocks for its response.
    Expected<Response> exchange(const Request &request, const EngineFuture &future);
    /// Returns an idle connection, or a new one; never null.
    std::unique_ptr<HttpConnection> takeConnection();
    /// Returns whether the client accepts a connection that another one may have left.
    bool isAccepted(const HttpConnection &connection);

    const Options m_options;
    const std::shared_ptr<HttpSession> m_session;
    /// Locked while a request is sent in response to a challenge.
    std::mutex m_authenticating;
    /// The number of challenges after which a credential was accepted or refused.
    std::atomic<int> m_authentications = 0;
    std::mutex m_mutex;
    // Guarded by `m_mutex`.
    std::optional<UrlCredential> m_credential;
    Scheme m_scheme = Scheme::Basic;
    /// The certificates of a connection that was accepted.
    QList<QSslCertificate> m_acceptedChain;
};
