#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QUrl>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpAuthentication.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/UrlCredential.h"

class HttpConnection;
class QSslCertificate;

/// Sends requests to HTTP servers (RFC 9110) for threads that may wait. Keeps connections, and the
/// login that a server has accepted, until it is destroyed. May be created and destroyed on any
/// thread; several threads may send at the same time. Nothing is remembered between two clients: no
/// cookies, no cached responses, no proxies, and no settings of the environment are used.
class HttpClient {
public:
    /// Every request has a deadline, even if the server sends data slowly. Must be positive. Both
    /// end a request with StoreUnreachable. They apply to each exchange with the server: a
    /// redirection and the answer to a challenge begin anew, so that a call of send() can take
    /// several times as long.
    struct Timeouts {
        /// Maximum time without sent or received data, including connection setup.
        std::chrono::milliseconds idle = std::chrono::seconds(30);
        /// Maximum time of one request, however slowly the server sends data.
        std::chrono::milliseconds total = std::chrono::minutes(10);
    };
    /// How a client behaves. The functions are called on the thread of send(), possibly by several
    /// threads at the same time, and may block; the timeouts include the time of `trusts`, but not
    /// that of `credential`. They must not call the client.
    struct Options {
        Timeouts timeouts = {};
        /// Returns the credential that may be sent with `scheme`, or an empty optional if there is
        /// none; then the caller receives the response with the status Unauthorized. An error
        /// becomes that of the request. Called once for each challenge that is answered: not for a
        /// request whose accepted credential is known, and again for each redirection that is
        /// challenged. Null means that no challenge is answered.
        std::function<Expected<std::optional<UrlCredential>>(HttpAuthentication::Scheme scheme)>
            credential = {};
        /// Returns whether to trust exactly this certificate despite `reasons`, which are
        /// sentences. Null means never. Called for each new connection to a server whose
        /// certificate is not valid; `certificate` is never null.
        std::function<bool(const QSslCertificate &certificate, const QStringList &reasons)> trusts =
            {};
    };
    /// A header field. The name is ASCII and compared regardless of case. Neither may contain a
    /// line break, since they are sent as they are; values must come from the program or be checked
    /// by the caller.
    struct Header {
        QByteArray name;
        QByteArray value;
    };
    /// A request. Must stay unchanged until send() returns.
    struct Request {
        /// The method, such as "GET". Case-sensitive (RFC 9110, section 9.1).
        QByteArray method;
        /// An "http" or "https" URL. Its user information is not sent. Its fragment is not sent
        /// either, and "." and ".." are resolved in its path.
        QUrl URL;
        QList<Header> headers = {};
        /// The value of the header field "Authorization"; empty for none. If it is set, it is sent
        /// with the first exchange, unless the server has accepted another credential before; it is
        /// not sent to another server.
        SecretBytes authorization = {};
        /// Sent as it is, with its length; the media type must be among the headers.
        QByteArray body = {};
        /// Maximum size of the response's body in bytes. A longer body ends the request with
        /// BlobRefused, as soon as more has arrived. It also applies to the bodies of redirections
        /// and challenges. The header fields have the limit HttpConnection::HeaderLimit.
        qint64 limit = 1 << 20;
    };
    /// A response of the server.
    struct Response {
        /// The status code; see HttpStatus.
        int status = 0;
        /// In the order of their arrival, without those of provisional responses (status 1xx); a
        /// field may occur several times.
        QList<Header> headers = {};
        /// May have been cut short if the response has neither a header field "Content-Length" nor
        /// the transfer encoding "chunked".
        QByteArray body = {};

        /// Returns the values of the header fields of that name, regardless of case, joined with
        /// commas; empty if there is none. Must not be used for fields whose values contain commas
        /// of their own, such as dates or cookies.
        QByteArray header(const QByteArray &name) const;
    };

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
