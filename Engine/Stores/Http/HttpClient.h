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
/// thread; several threads may send at the same time.
class HttpClient {
public:
    /// Every request has a deadline, even if the server sends data slowly.
    struct Timeouts {
        /// Maximum time without sent or received data, including connection setup.
        std::chrono::milliseconds idle = std::chrono::seconds(30);
        /// Maximum time of one request, however slowly the server sends data.
        std::chrono::milliseconds total = std::chrono::minutes(10);
    };
    /// The functions are called on the thread of `send`, and may block.
    struct Options {
        Timeouts timeouts = {};
        /// Returns the credential that may be sent with `scheme`, or an empty optional if there is
        /// none. An error becomes that of the request. Called on the thread of `send`, at most once
        /// for each request of that server, and may block. Null means that no challenge is
        /// answered.
        std::function<Expected<std::optional<UrlCredential>>(HttpAuthentication::Scheme scheme)>
            credential = {};
        /// Returns whether to trust exactly this certificate despite `reasons`, which are
        /// sentences. Null means never.
        std::function<bool(const QSslCertificate &certificate, const QStringList &reasons)> trusts =
            {};
    };
    /// A header field.
    struct Header {
        QByteArray name;
        QByteArray value;
    };
    /// A request.
    struct Request {
        /// The method, such as "GET".
        QByteArray method;
        /// An "http" or "https" URL. Its user information is not sent.
        QUrl URL;
        QList<Header> headers = {};
        /// The value of the header field "Authorization"; empty for none.
        SecretBytes authorization = {};
        QByteArray body = {};
        /// Maximum size of the response's body in bytes.
        qint64 limit = 1 << 20;
    };
    /// A response of the server.
    struct Response {
        /// The status code; see HttpStatus.
        int status = 0;
        QList<Header> headers = {};
        /// May have been cut short if the response has neither a header field "Content-Length" nor
        /// the transfer encoding "chunked".
        QByteArray body = {};

        /// Returns the values of the header fields of that name, regardless of case, joined with
        /// commas; empty if there is none.
        QByteArray header(const QByteArray &name) const;
    };

    HttpClient();
    explicit HttpClient(Options options);
    /// Closes all connections. Must not be called while another thread is in send().
    ~HttpClient();
    HttpClient(const HttpClient &) = delete;
    HttpClient &operator=(const HttpClient &) = delete;

    /// Sends `request` and returns the response, regardless of its status. Blocks until the
    /// response is complete, a timeout passes, or `future` is cancelled, which takes effect at
    /// once. Follows redirects (301, 302, 307, 308) with the same method and body, but never to
    /// another scheme, host or port. Answers one challenge of each request (see
    /// HttpAuthentication), and sends a credential that the server has accepted with the following
    /// requests to it. Errors: StoreUnreachable if the server cannot be reached or does not send a
    /// valid response, CertificateUntrusted, BlobRefused if the body of any response is longer than
    /// the limit, and Cancelled.
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
