#pragma once

#include <curl/curl.h>
#include <openssl/x509_vfy.h>

#include <QtCore/QDeadlineTimer>

#include "Engine/Stores/Http/HttpClient.h"

/// Connections of an HttpClient that one thread uses at a time: sends a request and receives the
/// response with libcurl, and keeps the connection for the next request.
class HttpConnection {
public:
    /// Bytes of the header fields of a response, including those of provisional responses.
    static constexpr qsizetype HeaderLimit = 64 << 10;

    /// `options` is not owned and must outlive this object.
    explicit HttpConnection(const HttpClient::Options &options);
    ~HttpConnection();
    HttpConnection(const HttpConnection &) = delete;
    HttpConnection &operator=(const HttpConnection &) = delete;

    /// Sends `request`, whose redirects and challenges are not followed. Blocks until the response
    /// is complete, one of the deadlines passes, or `future` is cancelled; ends at once then.
    Expected<HttpClient::Response> exchange(const HttpClient::Request &request,
                                            const EngineFuture &future);

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

    static size_t takeHeader(char *bytes, size_t size, size_t count, void *connection);
    static size_t takeBody(char *bytes, size_t size, size_t count, void *connection);
    static int takeProgress(void *connection, curl_off_t, curl_off_t received, curl_off_t,
                            curl_off_t sent);
    static CURLcode prepareTLS(CURL *easy, void *context, void *connection);
    static int verifyCertificate(X509_STORE_CTX *context, void *connection);

    template <class Value>
    void set(CURLoption option, Value value);
    void configure(const HttpClient::Request &request);
    void configureHeaders(const HttpClient::Request &request);
    void configureBody(const HttpClient::Request &request);
    CURLcode run(const EngineFuture &future);
    bool takeHeaderLine(const QByteArray &line);
    bool judgeCertificate(const QList<QSslCertificate> &chain);
    Error transportError(CURLcode code) const;
    QString server() const;

    const HttpClient::Options &m_options;
    std::unique_ptr<CURLM, MultiDeleter> m_multi;
    std::unique_ptr<CURL, EasyDeleter> m_easy;
    std::unique_ptr<curl_slist, ListDeleter> m_headers;
    bool m_isConfigured = true;
    char m_errorText[CURL_ERROR_SIZE] = {};

    // Of the current request.
    const HttpClient::Request *m_request = nullptr;
    HttpClient::Response m_response;
    qsizetype m_headerSize = 0;
    bool m_areHeadersComplete = false;
    curl_off_t m_transferred = 0;
    QDeadlineTimer m_idleDeadline;
    std::optional<Error> m_error;
};
