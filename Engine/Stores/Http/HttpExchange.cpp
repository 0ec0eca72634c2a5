#include "Engine/Stores/Http/HttpExchange.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslConfiguration>
#include <QtNetwork/QSslError>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

bool isOfTheWay(QNetworkReply::NetworkError error) {
    const bool isOfContents = error >= QNetworkReply::ContentAccessDenied;
    return error == QNetworkReply::ProtocolFailure ||
           (error != QNetworkReply::NoError && !isOfContents);
}

/// What Qt would do by itself is done by hand, or not at all.
QNetworkRequest plainRequest(const HttpClient::Request &request) {
    QNetworkRequest result(request.URL);
    result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                        QNetworkRequest::ManualRedirectPolicy);
    // No challenge is answered by Qt, which would also use NTLM and Negotiate.
    result.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    result.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    result.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    result.setRawHeader("User-Agent", "Velmora");
    // An answer that grows when it is unpacked could not be limited by what is received.
    result.setRawHeader("Accept-Encoding", "identity");
    for (const HttpClient::Header &header : request.headers) {
        result.setRawHeader(header.name, header.value);
    }
    return result;
}

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

}  // namespace

HttpExchange::HttpExchange(QNetworkAccessManager &manager, const HttpClient::Options &options,
                           const HttpClient::Request &request)
    : m_manager(manager), m_options(options), m_request(request) {
    m_patience.setSingleShot(true);
    m_end.setSingleShot(true);
}

void HttpExchange::start() {
    m_reply =
        m_manager.sendCustomRequest(plainRequest(m_request), m_request.method, m_request.body);
    m_reply->setParent(this);
    watch();
    m_patience.start(m_options.timeouts.idle);
    m_end.start(m_options.timeouts.total);
}

void HttpExchange::abort(const Error &error) {
    if (m_reply) {
        m_error = error;
        m_reply->abort();
    }
}

void HttpExchange::watch() {
    connect(&m_patience, &QTimer::timeout, this, [this] {
        abort(engineError(
            EngineErrorCode::StoreUnreachable,
            "The server “%1” does not respond. Check the network connection and try again.",
            server()));
    });
    connect(&m_end, &QTimer::timeout, this, [this] {
        abort(engineError(EngineErrorCode::StoreUnreachable,
                          "The server “%1” takes too long to respond. Try again later.", server()));
    });
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &HttpExchange::showLife);
    for (const auto signal : {&QNetworkReply::uploadProgress, &QNetworkReply::downloadProgress}) {
        connect(m_reply, signal, this, &HttpExchange::showLife);
    }
    connect(m_reply, &QNetworkReply::readyRead, this, &HttpExchange::takeBody);
    connect(m_reply, &QNetworkReply::sslErrors, this, &HttpExchange::judgeCertificate);
    connect(m_reply, &QNetworkReply::finished, this, &HttpExchange::finish);
}

void HttpExchange::judgeCertificate(const QList<QSslError> &errors) {
    const QSslCertificate certificate = m_reply->sslConfiguration().peerCertificate();
    const QStringList reasons = certificateReasons(errors);
    if (!certificate.isNull() && m_options.trusts && m_options.trusts(certificate, reasons)) {
        m_reply->ignoreSslErrors(errors);
        return;
    }
    m_error = engineError(EngineErrorCode::CertificateUntrusted,
                          localizedSyncString("The server “%1” cannot prove its identity: %2")
                              .arg(server(), reasons.join(u' ')));
}

void HttpExchange::takeBody() {
    m_body += m_reply->read(m_request.limit + 1 - m_body.size());
    if (m_body.size() > m_request.limit) {
        abort(engineError(
            EngineErrorCode::BlobRefused,
            "The server “%1” sent a response that is too long. Ask its administrator.", server()));
    }
}

void HttpExchange::showLife() {
    m_patience.start(m_options.timeouts.idle);
}

void HttpExchange::finish() {
    if (!m_error) {
        takeBody();
    }
    const Expected<HttpClient::Response> result = answer();
    m_patience.stop();
    m_end.stop();
    m_reply->disconnect(this);
    m_reply = nullptr;
    m_result.set_value(result);
}

Expected<HttpClient::Response> HttpExchange::answer() const {
    if (m_error) {
        return failure(*m_error);
    }
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool isCutShort = m_reply->hasRawHeader("Content-Length") &&
                            m_reply->rawHeader("Content-Length").toLongLong() != m_body.size();
    if (status == 0 || isOfTheWay(m_reply->error())) {
        return failure(transportError());
    }
    if (isCutShort) {
        return failure(closedEarly());
    }
    HttpClient::Response response{status, {}, m_body};
    for (const auto &[name, value] : m_reply->rawHeaderPairs()) {
        response.headers.append({name, value});
    }
    return response;
}

Error HttpExchange::closedEarly() const {
    // Qt says the same when it understands nothing.
    return engineError(
        EngineErrorCode::StoreUnreachable,
        "The server “%1” closed the connection without a response. Check its name and port.",
        server());
}

Error HttpExchange::transportError() const {
    switch (m_reply->error()) {
        case QNetworkReply::HostNotFoundError:
            return engineError(
                EngineErrorCode::StoreUnreachable,
                "The server “%1” was not found. Check its name and the network connection.",
                server());
        case QNetworkReply::ConnectionRefusedError:
            return engineError(EngineErrorCode::StoreUnreachable,
                               "The server “%1” refused the connection. Check the port, and "
                               "whether the server is running.",
                               server());
        case QNetworkReply::NoError:
        case QNetworkReply::RemoteHostClosedError:
            return closedEarly();
        case QNetworkReply::SslHandshakeFailedError:
            return engineError(
                EngineErrorCode::StoreUnreachable,
                localizedSyncString(
                    "A secure connection to the server “%1” could not be established: %2.")
                    .arg(server(), m_reply->errorString()));
        default:
            return engineError(
                EngineErrorCode::StoreUnreachable,
                localizedSyncString(
                    "The server “%1” cannot be reached: %2. Check the network connection.")
                    .arg(server(), m_reply->errorString()));
    }
}

QString HttpExchange::server() const {
    return m_request.URL.authority();
}
