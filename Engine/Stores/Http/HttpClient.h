#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/HttpAuthentication.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/UrlCredential.h"

class QNetworkAccessManager;
class QSslCertificate;

/// Requests to an HTTP server (RFC 9110) for threads that may wait. Connections are kept from one
/// request to the next, credentials and all else only as long as the client. Made and destroyed on
/// any thread; several threads may send at once.
class HttpClient {
public:
    /// None of them is for ever, however slowly a server dribbles.
    struct Timeouts {
        /// Without a sign of life, from the beginning on: Qt does not tell when it has connected.
        std::chrono::milliseconds idle = std::chrono::seconds(30);
        /// Of one request.
        std::chrono::milliseconds total = std::chrono::minutes(10);
    };
    struct Options {
        Timeouts timeouts = {};
        /// Returns the credential that may be sent with `scheme`, or an empty optional if there is
        /// none. Called on the thread of `send`, at most once for each request of that server, and
        /// may block. Null means that no challenge is answered.
        std::function<std::optional<UrlCredential>(HttpAuthentication::Scheme scheme)> credential =
            {};
        /// Whether to trust exactly this certificate, although `reasons`, which are sentences,
        /// speak against it; absent for never. Called on a thread of the client's own, and may
        /// block.
        std::function<bool(const QSslCertificate &certificate, const QStringList &reasons)> trusts =
            {};
    };
    struct Header {
        QByteArray name;
        QByteArray value;
    };
    struct Request {
        QByteArray method;
        /// "http" or "https". A user name in it is not sent.
        QUrl URL;
        QList<Header> headers = {};
        QByteArray body = {};
        /// Bytes of the answer's body.
        qint64 limit = 1 << 20;
    };
    struct Response {
        int status = 0;
        QList<Header> headers = {};
        /// One that came in chunks, without the header "Content-Length", may have been cut short:
        /// Qt does not always tell.
        QByteArray body = {};

        /// The value of the header of that name, in whatever case; empty where there is none.
        QByteArray header(const QByteArray &name) const;
    };

    HttpClient();
    explicit HttpClient(Options options);
    /// Must not be called while another thread is in `send`.
    ~HttpClient();
    HttpClient(const HttpClient &) = delete;
    HttpClient &operator=(const HttpClient &) = delete;

    /// The server's answer, whatever its status. Redirections (301, 302, 307, 308) are followed
    /// with the same method and body, but never to another scheme, host or port. One challenge of
    /// each request is answered (see HttpAuthentication); a credential that the server has accepted
    /// is sent with the following requests to it. Errors of the code
    /// StoreUnreachable say what is wrong with the server or the way to it, CertificateUntrusted
    /// why its certificate is not trusted, BlobRefused that the answer is longer than the limit.
    Expected<Response> send(const Request &request, const EngineFuture &future);

private:
    /// What a server has accepted.
    struct Login {
        QUrl server;
        HttpAuthentication authentication;
        UrlCredential credential;

        std::optional<Request> authorized(Request request);
    };

    Expected<Response> sendAuthorized(const Request &request, const EngineFuture &future);
    Request withKnownLogin(const Request &request);
    std::optional<Login> loginFor(const Request &request, const Response &challenge) const;
    Expected<Response> exchange(const Request &request, const EngineFuture &future);

    const Options m_options;
    std::mutex m_mutex;
    /// Guarded by `m_mutex`.
    std::optional<Login> m_login;
    QThread m_thread;
    QNetworkAccessManager *const m_manager;
};
