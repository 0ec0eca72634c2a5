#include "Support/TlsServer.h"

#include <fcntl.h>
#include <openssl/pem.h>
#include <unistd.h>

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <array>
#include <csignal>
#include <memory>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"

namespace {

constexpr int LookInterval = 50;

using Context = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;
using Session = std::unique_ptr<SSL, decltype(&SSL_free)>;

/// `identity` is the certificate and its private key, in PEM.
Context contextFor(const QByteArray &identity, int version) {
    Context context(SSL_CTX_new(TLS_server_method()), &SSL_CTX_free);
    const std::unique_ptr<BIO, decltype(&BIO_free)> text(
        BIO_new_mem_buf(identity.constData(), static_cast<int>(identity.size())), &BIO_free);
    const std::unique_ptr<X509, decltype(&X509_free)> certificate(
        PEM_read_bio_X509(text.get(), nullptr, nullptr, nullptr), &X509_free);
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(
        PEM_read_bio_PrivateKey(text.get(), nullptr, nullptr, nullptr), &EVP_PKEY_free);
    SSL_CTX_use_certificate(context.get(), certificate.get());
    SSL_CTX_use_PrivateKey(context.get(), key.get());
    // Also versions that OpenSSL does not speak by default.
    SSL_CTX_set_security_level(context.get(), 0);
    SSL_CTX_set_min_proto_version(context.get(), version);
    SSL_CTX_set_max_proto_version(context.get(), version);
    return context;
}

}  // namespace

TlsServer::TlsServer(const DirectConnectionIdentity &identity, int version, Script script) {
    std::promise<quint16> port;
    std::future<quint16> listeningPort = port.get_future();
    std::promise<bool> isEncrypted;
    m_isEncrypted = isEncrypted.get_future();
    m_thread = std::thread(&TlsServer::serve, this,
                           identity.certificate.toPem() + identity.privateKey.toPem(), version,
                           std::move(script), std::move(port), std::move(isEncrypted));
    m_port = listeningPort.get();
}

TlsServer::~TlsServer() {
    m_isEnding = true;
    m_thread.join();
}

void TlsServer::keepSilent(SSL *session) {
    std::array<char, 1000> bytes{};
    while (SSL_read(session, bytes.data(), bytes.size()) > 0) {
    }
}

void TlsServer::updateKeys(SSL *session) {
    while (SSL_key_update(session, SSL_KEY_UPDATE_NOT_REQUESTED) == 1 &&
           SSL_do_handshake(session) == 1) {
    }
}

void TlsServer::serve(const QByteArray &identity, int version, const Script &script,
                      std::promise<quint16> port, std::promise<bool> isEncrypted) {
    // A client that closes the connection is noticed by the result of writing.
    std::signal(SIGPIPE, SIG_IGN);
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port.set_value(server.serverPort());
    while (!m_isEnding && !server.waitForNewConnection(LookInterval)) {
    }
    const std::unique_ptr<QTcpSocket> accepted(server.nextPendingConnection());
    if (!accepted) {
        return;
    }
    // Not that of the socket object, which does not block.
    const int descriptor = dup(static_cast<int>(accepted->socketDescriptor()));
    fcntl(descriptor, F_SETFL, 0);
    const Context context = contextFor(identity, version);
    const Session session(SSL_new(context.get()), &SSL_free);
    SSL_set_fd(session.get(), descriptor);
    const bool isDone = SSL_accept(session.get()) == 1;
    isEncrypted.set_value(isDone);
    if (isDone) {
        script(session.get());
    }
    close(descriptor);
}
