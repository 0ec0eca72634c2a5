#include "Engine/Stores/Http/HttpConnection.h"

#include <openssl/ssl.h>

#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslError>
#include <algorithm>
#include <cerrno>

#include "Engine/Stores/Http/ServerCertificate.h"
#include "Host/SyncStrings.h"

namespace {

QString certificateReason(const QSslError &error) {
    switch (error.error()) {
        case QSslError::SelfSignedCertificate:
            return localizedSyncString("The certificate is self-signed.");
        case QSslError::SelfSignedCertificateInChain:
        case QSslError::UnableToGetLocalIssuerCertificate:
        case QSslError::UnableToVerifyFirstCertificate:
        case QSslError::UnableToGetIssuerCertificate:
        case QSslError::CertificateUntrusted:
            return localizedSyncString(
                "The certificate was issued by an authority that this computer does not trust.");
        case QSslError::CertificateExpired:
            return localizedSyncString("The certificate has expired.");
        case QSslError::CertificateNotYetValid:
            return localizedSyncString("The certificate is not valid yet.");
        case QSslError::CertificateBlacklisted:
            return localizedSyncString(
                "The certificate, or one with which it was issued, has a key or a signature that "
                "is too weak.");
        case QSslError::HostNameMismatch:
            return localizedSyncString("The certificate was issued for another server.");
        default:
            return error.errorString();
    }
}

QStringList certificateReasons(const QList<QSslError> &errors) {
    QStringList reasons;
    for (const QSslError &error : errors) {
        reasons.append(certificateReason(error));
    }
    reasons.removeDuplicates();
    return reasons;
}

QSslCertificate certificateFrom(X509 *certificate) {
    QByteArray bytes(std::max(i2d_X509(certificate, nullptr), 0), '\0');
    auto *end = reinterpret_cast<unsigned char *>(bytes.data());
    i2d_X509(certificate, &end);
    return QSslCertificate(bytes, QSsl::Der);
}

}  // namespace

HttpConnection::HttpConnection() {
    static const CURLcode initialized = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (initialized == CURLE_OK) {
        m_multi.reset(curl_multi_init());
    }
}

HttpConnection::~HttpConnection() = default;

Expected<HttpResponse> HttpConnection::exchange(const HttpRequest &request,
                                                const HttpOptions &options,
                                                const EngineFuture &future) {
    m_request = &request;
    m_options = &options;
    CURLcode code = attempt(future);
    if (canRepeat(code)) {
        code = attempt(future);
    }
    Expected<HttpResponse> response = responseOf(code);
    // Newer versions of libcurl keep in it what was sent, perhaps with a password, until it is
    // freed. The network connection is not its own.
    m_easy.reset();
    m_request = nullptr;
    m_options = nullptr;
    return response;
}

Expected<HttpResponse> HttpConnection::responseOf(CURLcode code) {
    if (m_error) {
        return failure(*m_error);
    }
    if (code != CURLE_OK || !m_areHeadersComplete) {
        Error error = transportError(code == CURLE_OK ? CURLE_PARTIAL_FILE : code);
        error.details = QString::fromUtf8(*m_errorText ? m_errorText : curl_easy_strerror(code));
        return failure(error);
    }
    long status = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
    constexpr int proxyAuthenticationRequired = 407;
    if (status == proxyAuthenticationRequired && !m_proxy.address.isEmpty()) {
        return failure(proxyError(QString::number(status)));
    }
    m_response.status = static_cast<int>(status);
    return std::move(m_response);
}

CURLcode HttpConnection::attempt(const EngineFuture &future) {
    m_response = {};
    m_headerSize = 0;
    m_receivedBefore = m_sockets.received();
    m_areHeadersComplete = false;
    m_transferred = 0;
    m_error.reset();
    configure(*m_request);
    const CURLcode code = m_isConfigured ? run(future) : CURLE_FAILED_INIT;
    // A kept connection has no secret of the request.
    m_headers.reset();
    return code;
}

bool HttpConnection::canRepeat(CURLcode code) const {
    static const QByteArrayList idempotent{"GET", "PROPFIND", "PUT", "DELETE", "MKCOL"};
    const bool isLost =
        code == CURLE_SEND_ERROR || code == CURLE_RECV_ERROR || code == CURLE_GOT_NOTHING;
    if (m_error || !isLost || m_headerSize > 0 || !idempotent.contains(m_request->method)) {
        return false;
    }
    long connects = 1;
    curl_easy_getinfo(m_easy.get(), CURLINFO_NUM_CONNECTS, &connects);
    return connects == 0;
}

template <class Value>
void HttpConnection::set(CURLoption option, Value value) {
    m_isConfigured = m_isConfigured && curl_easy_setopt(m_easy.get(), option, value) == CURLE_OK;
}

/// Sets everything for each request. Nothing that libcurl could do by itself is left to it:
/// redirects, challenges of servers, cookies, the choice of a proxy and certificates.
void HttpConnection::configure(const HttpRequest &request) {
    m_easy.reset(m_multi ? curl_easy_init() : nullptr);
    m_isConfigured = m_easy != nullptr;
    if (!m_isConfigured) {
        return;
    }
    m_errorText[0] = '\0';
    const QByteArray URL = request.URL.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment |
                                                 QUrl::NormalizePathSegments);
    set(CURLOPT_URL, URL.constData());
    set(CURLOPT_PATH_AS_IS, 1L);
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L);
    // libcurl repeats any request, also POST, for which it finds a kept connection closed.
    set(CURLOPT_FRESH_CONNECT, request.isUnrepeatable ? 1L : 0L);
    set(CURLOPT_USERAGENT, "Velmora");
    set(CURLOPT_ERRORBUFFER, m_errorText);
    configureTLS();
    configureCallbacks();
    configureProxy(request.URL);
    configureHeaders(request);
    configureBody(request);
}

void HttpConnection::configureTLS() {
    // The certificate is verified by verifyCertificate instead. libcurl would nevertheless read all
    // authorities of the system for each connection, which can take longer than servers wait.
    set(CURLOPT_SSL_VERIFYPEER, 0L);
    set(CURLOPT_SSL_VERIFYHOST, 0L);
    set(CURLOPT_CAINFO, nullptr);
    set(CURLOPT_CAPATH, nullptr);
    set(CURLOPT_SSL_SESSIONID_CACHE, 0L);
    set(CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    set(CURLOPT_SSL_CTX_FUNCTION, &HttpConnection::prepareTLS);
    set(CURLOPT_SSL_CTX_DATA, this);
}

void HttpConnection::configureCallbacks() {
    set(CURLOPT_OPENSOCKETFUNCTION, &HttpConnection::openSocket);
    set(CURLOPT_OPENSOCKETDATA, this);
    set(CURLOPT_CLOSESOCKETFUNCTION, &HttpConnection::closeSocket);
    set(CURLOPT_CLOSESOCKETDATA, this);
    set(CURLOPT_HEADERFUNCTION, &HttpConnection::takeHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &HttpConnection::takeBody);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_NOPROGRESS, 0L);
    set(CURLOPT_XFERINFOFUNCTION, &HttpConnection::takeProgress);
    set(CURLOPT_XFERINFODATA, this);
}

void HttpConnection::configureProxy(const QUrl &URL) {
    const QString asked = URL.scheme() + u'/' + server();
    if (m_proxiedServer != asked) {
        m_proxy = DesktopProxy::forURL(URL);
        m_proxiedServer = asked;
    }
    // Without an address libcurl uses none, also if the environment has one.
    set(CURLOPT_PROXY, m_proxy.address.constData());
    // What the proxy says about the way is not part of the response.
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    if (!m_proxy.user.isEmpty()) {
        set(CURLOPT_PROXYUSERNAME, m_proxy.user.constData());
        set(CURLOPT_PROXYPASSWORD, m_proxy.password.constData());
        set(CURLOPT_PROXYAUTH, long(CURLAUTH_BASIC | CURLAUTH_DIGEST));
    }
}

void HttpConnection::configureHeaders(const HttpRequest &request) {
    // A compressed response could not be limited by what is received. A header without a value is
    // not sent.
    QByteArrayList lines = {"Accept-Encoding: identity", "Expect:"};
    for (const HttpHeader &header : request.headers) {
        lines.append(header.name + ": " + header.value);
    }
    curl_slist *list = nullptr;
    for (const QByteArray &line : lines) {
        list = curl_slist_append(list, line.constData());
    }
    if (!request.authorization.isEmpty()) {
        QByteArray line = QByteArray("Authorization: ").append(request.authorization.view());
        list = curl_slist_append(list, line.constData());
        SecretBytes::wipe(line);
    }
    m_headers.reset(list);
    set(CURLOPT_HTTPHEADER, list);
}

void HttpConnection::configureBody(const HttpRequest &request) {
    if (!request.body.isEmpty() || request.method == "PUT" || request.method == "POST") {
        set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(request.body.size()));
        set(CURLOPT_POSTFIELDS, request.body.constData());
    }
    set(CURLOPT_CUSTOMREQUEST, request.method.constData());
}

CURLcode HttpConnection::run(const EngineFuture &future) {
    const QDeadlineTimer end(m_options->timeouts.total);
    m_idleDeadline = QDeadlineTimer(m_options->timeouts.idle);
    const std::stop_callback wakeUp(future.cancellation(),
                                    [this] { curl_multi_wakeup(m_multi.get()); });
    check(curl_multi_add_handle(m_multi.get(), m_easy.get()));
    std::optional<CURLcode> result;
    while (!result && !m_error) {
        int count = 0;
        check(curl_multi_perform(m_multi.get(), &count));
        if (const CURLMsg *message = curl_multi_info_read(m_multi.get(), &count)) {
            result = message->data.result;
        } else if (auto reason = reasonToEnd(end, future)) {
            m_error = std::move(reason);
        } else {
            const qint64 wait = std::min(end.remainingTime(), m_idleDeadline.remainingTime());
            check(curl_multi_poll(m_multi.get(), nullptr, 0, static_cast<int>(wait) + 1, nullptr));
        }
    }
    check(curl_multi_remove_handle(m_multi.get(), m_easy.get()));
    return result.value_or(CURLE_ABORTED_BY_CALLBACK);
}

std::optional<Error> HttpConnection::reasonToEnd(const QDeadlineTimer &end,
                                                 const EngineFuture &future) const {
    if (future.isCancelled()) {
        return operationCancelled();
    }
    if (m_sockets.received() - m_receivedBefore > transferLimit(m_request->limit)) {
        return tooLong(EngineErrorCode::StoreUnreachable);
    }
    if (end.hasExpired()) {
        return engineError(EngineErrorCode::StoreUnreachable,
                           "The server “%1” takes too long to respond. Try again later.", server());
    }
    if (m_idleDeadline.hasExpired()) {
        return engineError(
            EngineErrorCode::StoreUnreachable,
            "The server “%1” does not respond. Check the network connection and try again.",
            server());
    }
    return {};
}

Error HttpConnection::tooLong(EngineErrorCode code) const {
    return engineError(
        code, "The server “%1” sent a response that is too long. Ask its administrator.", server());
}

void HttpConnection::check(CURLMcode code) {
    if (code != CURLM_OK && !m_error) {
        m_error = unreachable(QString::fromUtf8(curl_multi_strerror(code)));
    }
}

Error HttpConnection::unreachable(const QString &reason) const {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        localizedSyncString("The server “%1” cannot be reached: %2. Check the network connection.")
            .arg(server(), reason));
}

size_t HttpConnection::takeHeader(char *bytes, size_t size, size_t count, void *connection) {
    const QByteArray line(bytes, static_cast<qsizetype>(size * count));
    return static_cast<HttpConnection *>(connection)->takeHeaderLine(line) ? size * count : 0;
}

bool HttpConnection::takeHeaderLine(const QByteArray &line) {
    m_headerSize += line.size();
    if (m_headerSize > HeaderLimit) {
        m_error = tooLong(EngineErrorCode::StoreUnreachable);
        return false;
    }
    const qsizetype colon = line.indexOf(':');
    m_areHeadersComplete = line.trimmed().isEmpty();
    if (line.startsWith("HTTP/")) {
        m_response.headers.clear();
    } else if (colon > 0) {
        m_response.headers.append({line.first(colon), line.mid(colon + 1).trimmed()});
    }
    return true;
}

size_t HttpConnection::takeBody(char *bytes, size_t /*size*/, size_t count, void *connection) {
    auto &self = *static_cast<HttpConnection *>(connection);
    const auto length = static_cast<qsizetype>(count);
    if (self.m_response.body.size() + length > self.m_request->limit) {
        self.m_error = self.tooLong(EngineErrorCode::BlobRefused);
        return 0;
    }
    self.m_response.body.append(bytes, length);
    return count;
}

int HttpConnection::takeProgress(void *connection, curl_off_t, curl_off_t received, curl_off_t,
                                 curl_off_t sent) {
    auto &self = *static_cast<HttpConnection *>(connection);
    const curl_off_t transferred = received + sent + self.m_headerSize;
    if (transferred != self.m_transferred) {
        self.m_transferred = transferred;
        self.m_idleDeadline = QDeadlineTimer(self.m_options->timeouts.idle);
    }
    return 0;
}

curl_socket_t HttpConnection::openSocket(void *connection, curlsocktype, curl_sockaddr *address) {
    return static_cast<HttpConnection *>(connection)->m_sockets.open(*address);
}

int HttpConnection::closeSocket(void *connection, curl_socket_t socket) {
    static_cast<HttpConnection *>(connection)->m_sockets.close(socket);
    return 0;
}

CURLcode HttpConnection::prepareTLS(CURL *, void *context, void *connection) {
    auto *const TLS = static_cast<SSL_CTX *>(context);
    SSL_CTX_set_verify(TLS, SSL_VERIFY_PEER, nullptr);
    // Otherwise a server could present another certificate later, when the connection is closed.
    SSL_CTX_set_options(TLS, SSL_OP_NO_RENEGOTIATION);
    // Otherwise one call reads records without data as long as they arrive, past any deadline.
    SSL_CTX_clear_mode(TLS, SSL_MODE_AUTO_RETRY);
    SSL_CTX_set_cert_verify_callback(TLS, &HttpConnection::verifyCertificate, connection);
    return CURLE_OK;
}

int HttpConnection::verifyCertificate(X509_STORE_CTX *context, void *connection) {
    QList<QSslCertificate> chain;
    const STACK_OF(X509) *const certificates = X509_STORE_CTX_get0_untrusted(context);
    for (int i = 0; i < sk_X509_num(certificates); ++i) {
        chain.append(certificateFrom(sk_X509_value(certificates, i)));
    }
    auto &self = *static_cast<HttpConnection *>(connection);
    const bool isAccepted = self.m_request && self.judgeCertificate(chain);
    X509_STORE_CTX_set_error(context, isAccepted ? X509_V_OK : X509_V_ERR_APPLICATION_VERIFICATION);
    return isAccepted ? 1 : 0;
}

bool HttpConnection::judgeCertificate(const QList<QSslCertificate> &chain) {
    const QString host = m_request->URL.host();
    const QStringList reasons = objections(chain, host, *m_options);
    if (!chain.value(0).isNull() && reasons.isEmpty()) {
        m_chain = chain;
        m_host = host;
        return true;
    }
    m_error = engineError(
        EngineErrorCode::CertificateUntrusted,
        localizedSyncString(
            "The server “%1” cannot prove its identity: %2 Check the address, or ask the "
            "administrator of the server about its certificate.")
            .arg(server(), reasons.join(u' ')));
    return false;
}

bool HttpConnection::isAccepted(const HttpOptions &options) const {
    return m_chain.isEmpty() || objections(m_chain, m_host, options).isEmpty();
}

QStringList HttpConnection::objections(const QList<QSslCertificate> &chain, const QString &host,
                                       const HttpOptions &options) {
    const QStringList reasons = certificateReasons(ServerCertificate::errors(chain, host));
    const QSslCertificate certificate = chain.value(0);
    const bool isTrusted = !reasons.isEmpty() && !certificate.isNull() && options.trusts &&
                           options.trusts(certificate, reasons);
    return isTrusted ? QStringList() : reasons;
}

Error HttpConnection::transportError(CURLcode code) const {
    const QString text = QString::fromUtf8(*m_errorText ? m_errorText : curl_easy_strerror(code));
    if (hasProxyFailed(code)) {
        return proxyError(text);
    }
    if (code == CURLE_COULDNT_CONNECT && isRefused()) {
        return engineError(EngineErrorCode::StoreUnreachable,
                           "The server “%1” refused the connection. Check the port, and "
                           "whether the server is running.",
                           server());
    }
    switch (code) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return serverNotFound(server());
        case CURLE_UNSUPPORTED_PROTOCOL:
        case CURLE_WEIRD_SERVER_REPLY:
        case CURLE_GOT_NOTHING:
        case CURLE_PARTIAL_FILE:
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
            return engineError(
                EngineErrorCode::StoreUnreachable,
                "The server “%1” closed the connection without a response. Check its name and "
                "port.",
                server());
        case CURLE_SSL_CONNECT_ERROR:
            return engineError(
                EngineErrorCode::StoreUnreachable,
                localizedSyncString(
                    "A secure connection to the server “%1” could not be established (%2). Check "
                    "its port, and whether it supports HTTPS.")
                    .arg(server(), text));
        default:
            return unreachable(text);
    }
}

bool HttpConnection::isRefused() const {
    long systemError = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_OS_ERRNO, &systemError);
    return systemError == ECONNREFUSED;
}

bool HttpConnection::hasProxyFailed(CURLcode code) const {
    long tunnel = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_HTTP_CONNECTCODE, &tunnel);
    constexpr long firstRefusal = 300;
    return !m_proxy.address.isEmpty() &&
           (tunnel >= firstRefusal || code == CURLE_COULDNT_CONNECT || code == CURLE_PROXY ||
            code == CURLE_COULDNT_RESOLVE_PROXY || code == CURLE_COULDNT_RESOLVE_HOST);
}

Error HttpConnection::proxyError(const QString &reason) const {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        localizedSyncString("The server “%1” cannot be reached through the proxy “%2” (%3). Check "
                            "the proxy in the network settings of the desktop.")
            .arg(server(), QString::fromUtf8(m_proxy.address), reason));
}

QString HttpConnection::server() const {
    return m_request->URL.authority();
}
