#pragma once

#include <curl/curl.h>
#include <openssl/x509_vfy.h>

#include <QtCore/QDeadlineTimer>
#include <QtNetwork/QSslCertificate>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Foundation/EngineFuture.h"
#include "Engine/Stores/Http/CountedSockets.h"
#include "Engine/Stores/Http/DesktopProxy.h"
#include "Engine/Stores/Http/HttpMessage.h"
#include "Engine/Stores/Http/HttpOptions.h"

/// A connection of HttpClients, used by one thread at a time, not necessarily always the same. It
/// sends requests and receives responses with libcurl (HTTP/1.1 only), and keeps the network
/// connection open for the next request; if the server has closed it, or the next request is for
/// another server, libcurl opens a new one. If the server closes a kept connection before anything
/// of the response has arrived, the request is sent again on a new one, by libcurl or, where it
/// does not, by canRepeat(). libcurl does that with any method, so callers must be prepared that a
/// server has carried out a request that is sent to it a second time.
///
/// libcurl decides nothing by itself: redirects, challenges of servers, cookies, proxies of the
/// environment, compression and its own verification of certificates are off. The proxy is that of
/// the desktop's settings, which are read once for each server. Certificates are verified by
/// ServerCertificate, TLS must be 1.2 or newer, and no signals are used, so that any number of
/// connections can exist in a process.
class HttpConnection {
public:
    /// Maximum size in bytes of the header fields of a response, including those of provisional
    /// responses.
    static constexpr qsizetype HeaderLimit = 64 << 10;
    /// What may arrive for a response whose body may have `limit` bytes: four times as much and 1
    /// MiB more, since servers may send small chunks or records of TLS.
    static constexpr qint64 transferLimit(qint64 limit) { return 4 * limit + (1 << 20); }

    /// Does not connect. If libcurl cannot be initialized, every exchange fails.
    HttpConnection();
    /// Closes the network connection without waiting for the server.
    ~HttpConnection();
    HttpConnection(const HttpConnection &) = delete;
    HttpConnection &operator=(const HttpConnection &) = delete;

    /// Sends `request` and returns its response; follows no redirection and responds to no
    /// challenge. Blocks until the response is complete, a deadline passes, or `future` is
    /// cancelled, which ends the request at once. Name resolution runs on a thread of libcurl and
    /// is not waited for after that. Errors are those of HttpClient::send(); after one, the object
    /// can be used again. `request` and `options` are not owned and not used after the return. Not
    /// reentrant: the function HttpOptions::trusts, which is called meanwhile, must not use this
    /// connection.
    Expected<HttpResponse> exchange(const HttpRequest &request, const HttpOptions &options,
                                    const EngineFuture &future);
    /// Returns the certificates with which the server has proved its identity, its own first; empty
    /// if there is no connection yet, or no TLS.
    const QList<QSslCertificate> &chain() const { return m_chain; }
    /// Returns whether a new connection to the same server would be accepted now, if it presented
    /// the same certificates. True without TLS.
    bool isAccepted(const HttpOptions &options) const;

private:
    struct ListDeleter {
        void operator()(curl_slist *list) const { curl_slist_free_all(list); }
    };
    struct EasyDeleter {
        void operator()(CURL *easy) const { curl_easy_cleanup(easy); }
    };
    struct MultiDeleter {
        void operator()(CURLM *multi) const { curl_multi_cleanup(multi); }
    };

    /// Callbacks of libcurl and OpenSSL; `connection` is this object. They are called within
    /// exchange(), on its thread; closeSocket() also by the destructor. A count other than the one
    /// received ends the transfer; so does a result other than 0 of takeProgress().
    static size_t takeHeader(char *bytes, size_t size, size_t count, void *connection);
    /// libcurl passes 1 as `size`.
    static size_t takeBody(char *bytes, size_t size, size_t count, void *connection);
    static int takeProgress(void *connection, curl_off_t, curl_off_t received, curl_off_t,
                            curl_off_t sent);
    static curl_socket_t openSocket(void *connection, curlsocktype, curl_sockaddr *address);
    static int closeSocket(void *connection, curl_socket_t socket);
    static CURLcode prepareTLS(CURL *easy, void *context, void *connection);
    /// Replaces OpenSSL's verification (SSL_CTX_set_cert_verify_callback); returns 1 to accept.
    static int verifyCertificate(X509_STORE_CTX *context, void *connection);

    /// Sets one option for the next transfer. A failure makes exchange() fail before it connects.
    template <class Value>
    void set(CURLoption option, Value value);
    /// Set the options of libcurl for `request`.
    void configure(const HttpRequest &request);
    void configureTLS();
    void configureCallbacks();
    void configureProxy(const QUrl &URL);
    void configureHeaders(const HttpRequest &request);
    void configureBody(const HttpRequest &request);
    /// Sets the error if libcurl has reported one and none is set.
    void check(CURLMcode code);
    Error unreachable(const QString &reason) const;
    /// Configures and performs the request. Blocks. Sets the error, unless it is one of libcurl.
    CURLcode attempt(const EngineFuture &future);
    /// Returns the response, or the error of the last attempt.
    Expected<HttpResponse> responseOf(CURLcode code);
    /// Returns whether the attempt failed because the server had closed a kept connection, which it
    /// may do at any time, and the request has a method that can be repeated without harm. libcurl
    /// repeats requests itself if it notices when it reads, but not when it sends.
    bool canRepeat(CURLcode code) const;
    /// Performs the request. Blocks.
    CURLcode run(const EngineFuture &future);
    /// Returns why the request, which is not complete, must end now; empty if it may go on.
    std::optional<Error> reasonToEnd(const QDeadlineTimer &end, const EngineFuture &future) const;
    Error tooLong(EngineErrorCode code) const;
    /// Takes one line with its line break, in the order of arrival; a status line begins a new
    /// response. Returns false, and sets the error, if the fields are too long.
    bool takeHeaderLine(const QByteArray &line);
    /// Returns whether the server's certificate is valid or trusted by the user; otherwise sets the
    /// error.
    bool judgeCertificate(const QList<QSslCertificate> &chain);
    /// Returns what speaks against the certificates for `host` and is not accepted by the user;
    /// empty if nothing does.
    static QStringList objections(const QList<QSslCertificate> &chain, const QString &host,
                                  const HttpOptions &options);
    /// Returns the error for a failed transfer.
    Error transportError(CURLcode code) const;
    /// Returns whether the computer of the server or proxy has refused the connection.
    bool isRefused() const;
    /// Returns whether the proxy, not the server, has failed or refused a transfer.
    bool hasProxyFailed(CURLcode code) const;
    Error proxyError(const QString &reason) const;
    /// Returns host and port of the current request, as errors show them.
    QString server() const;

    /// Used until libcurl has closed its connections.
    CountedSockets m_sockets;
    /// Has the network connections.
    std::unique_ptr<CURLM, MultiDeleter> m_multi;
    /// The request; null between requests.
    std::unique_ptr<CURL, EasyDeleter> m_easy;
    std::unique_ptr<curl_slist, ListDeleter> m_headers;
    /// Whether libcurl has accepted all options.
    bool m_isConfigured = true;
    /// The message of libcurl about the last failure.
    char m_errorText[CURL_ERROR_SIZE] = {};
    /// What was accepted last, and for which host.
    QList<QSslCertificate> m_chain;
    QString m_host;
    /// The proxy of the server that was asked for last.
    DesktopProxy m_proxy;
    QString m_proxiedServer;

    // Of the current request; both pointers are null between requests.
    const HttpRequest *m_request = nullptr;
    const HttpOptions *m_options = nullptr;
    HttpResponse m_response;
    qsizetype m_headerSize = 0;
    /// What had arrived before.
    qint64 m_receivedBefore = 0;
    bool m_areHeadersComplete = false;
    /// Bytes transferred at the last progress, which restarts the idle deadline.
    curl_off_t m_transferred = 0;
    QDeadlineTimer m_idleDeadline;
    /// Takes precedence over the error of libcurl.
    std::optional<Error> m_error;
};
