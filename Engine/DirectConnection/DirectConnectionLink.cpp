#include "Engine/DirectConnection/DirectConnectionLink.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/err.h>
#include <openssl/x509.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/HostLookUp.h"
#include "Engine/DirectConnection/SocketBio.h"
#include "Engine/Foundation/CancellableWait.h"
#include "Engine/Foundation/EngineError.h"
#include "Platform/Security/SecretBytes.h"

namespace {

constexpr std::chrono::seconds ConnectionTimeout(10);
/// For all addresses together: a name may have very many.
constexpr std::chrono::seconds TotalConnectionTimeout(30);

/// `details` are the reason as the system or a library states it; they may be empty.
Error unreachable(const QString &host, const QString &details) {
    Error error = engineError(EngineErrorCode::StoreUnreachable,
                              "“%1” cannot be reached. Check that the computer is on and lets "
                              "other computers synchronize.",
                              host);
    error.details = details;
    return error;
}

/// Returns what OpenSSL states about the last call; empty if it states nothing.
QString reasonOfOpenSSL() {
    const char *reason = ERR_reason_error_string(ERR_peek_last_error());
    return QString::fromUtf8(reason);
}

}  // namespace

DirectConnectionLink::DirectConnectionLink()
    : m_context(nullptr, &SSL_CTX_free), m_session(nullptr, &SSL_free) {}

DirectConnectionLink::~DirectConnectionLink() {
    disconnect();
}

void DirectConnectionLink::disconnect() {
    m_session.reset();
    if (m_socket >= 0) {
        close(m_socket);
        m_socket = -1;
    }
}

bool DirectConnectionLink::isConnected() const {
    if (!m_session) {
        return false;
    }
    // Between two exchanges, only the end of the connection can be read.
    char next = 0;
    size_t count = 0;
    ERR_clear_error();
    const int result = SSL_peek_ex(m_session.get(), &next, sizeof next, &count);
    return SSL_get_error(m_session.get(), result) == SSL_ERROR_WANT_READ;
}

Expected<void> DirectConnectionLink::connect(const QString &host, quint16 port,
                                             const EngineFuture &future) {
    m_host = host;
    const Expected<HostLookUp::Addresses> addresses = HostLookUp::addresses(host, port, future);
    if (!addresses) {
        return failure(addresses.error());
    }
    Expected<void> connected = failure(unreachable(host, {}));
    const QDeadlineTimer end(TotalConnectionTimeout);
    for (const addrinfo *address = addresses->get(); address && !end.hasExpired();
         address = address->ai_next) {
        connected = connectTo(*address, std::min(QDeadlineTimer(ConnectionTimeout), end), future);
        if (connected) {
            return startEncryption(future);
        }
        disconnect();
    }
    return connected;
}

Expected<void> DirectConnectionLink::connectTo(const addrinfo &address, QDeadlineTimer deadline,
                                               const EngineFuture &future) {
    m_socket = socket(address.ai_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const bool isStarted =
        m_socket >= 0 &&
        (::connect(m_socket, address.ai_addr, address.ai_addrlen) == 0 || errno == EINPROGRESS);
    int problem = isStarted ? 0 : errno;
    if (isStarted && !waitFor(POLLOUT, deadline, future)) {
        problem = ETIMEDOUT;
    }
    socklen_t size = sizeof problem;
    if (problem == 0 && getsockopt(m_socket, SOL_SOCKET, SO_ERROR, &problem, &size) != 0) {
        problem = errno;
    }
    if (problem != 0) {
        return failure(unreachable(m_host, qt_error_string(problem)));
    }
    const int immediately = 1;
    setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &immediately, sizeof immediately);
    return {};
}

Error DirectConnectionLink::lost() const {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The connection to “%1” was lost. Try again.", m_host);
}

Error DirectConnectionLink::notUnderstood(const QString &details) const {
    Error error = engineError(
        EngineErrorCode::StoreUnreachable,
        "“%1” sent an invalid response. Use the same version of Velmora on both computers.",
        m_host);
    error.details = details;
    return error;
}

Expected<void> DirectConnectionLink::startEncryption(const EngineFuture &future) {
    m_context.reset(SSL_CTX_new(TLS_client_method()));
    SSL_CTX_set_min_proto_version(m_context.get(), TLS1_3_VERSION);
    // The certificate is self-signed; the caller compares the pinned fingerprint.
    SSL_CTX_set_verify(m_context.get(), SSL_VERIFY_NONE, nullptr);
    SSL_CTX_set_mode(m_context.get(), SSL_MODE_ENABLE_PARTIAL_WRITE);
    // Otherwise one call reads records without data as long as they arrive, past any deadline.
    SSL_CTX_clear_mode(m_context.get(), SSL_MODE_AUTO_RETRY);
    m_session.reset(SSL_new(m_context.get()));
    BIO *bio = newSocketBio(m_socket);
    if (!bio) {
        disconnect();
        return failure(unreachable(m_host, reasonOfOpenSSL()));
    }
    SSL_set_bio(m_session.get(), bio, bio);
    const QDeadlineTimer deadline(ConnectionTimeout);
    int result = 0;
    do {
        // An older error of this thread would be taken for one of this call.
        ERR_clear_error();
        result = SSL_connect(m_session.get());
    } while (result != 1 && waitToGoOn(result, deadline, future));
    const std::unique_ptr<X509, decltype(&X509_free)> certificate(
        result == 1 ? SSL_get1_peer_certificate(m_session.get()) : nullptr, &X509_free);
    if (!certificate) {
        const QString reason = reasonOfOpenSSL();
        disconnect();
        return failure(unreachable(m_host, reason));
    }
    QByteArray bytes(i2d_X509(certificate.get(), nullptr), Qt::Uninitialized);
    auto *end = reinterpret_cast<unsigned char *>(bytes.data());
    i2d_X509(certificate.get(), &end);
    m_serverFingerprint = DirectConnectionIdentity::fingerprint(bytes);
    return {};
}

Expected<DirectConnectionMessage::Received> DirectConnectionLink::exchange(
    QByteArray request, qsizetype limit, const Timeouts &timeouts, const EngineFuture &future) {
    m_idleTimeout = timeouts.idle;
    m_end = QDeadlineTimer(timeouts.total);
    noteProgress();
    const Expected<void> sent = isConnected() ? send(request, future) : failure(lost());
    // It may contain a secret, and the response may take long.
    SecretBytes::wipe(request);
    return sent.and_then([&] { return receiveMessage(limit, future); })
        .map_error([&](const Error &error) {
            disconnect();
            return error;
        });
}

void DirectConnectionLink::noteProgress() {
    m_deadline = std::min(QDeadlineTimer(m_idleTimeout), m_end);
}

Expected<DirectConnectionMessage::Received> DirectConnectionLink::receiveMessage(
    qsizetype limit, const EngineFuture &future) {
    return receive(DirectConnectionMessage::LengthSize, future)
        .map(DirectConnectionMessage::length)
        .and_then([&](qsizetype length) {
            return length <= limit ? receive(length, future)
                                   : failure(notUnderstood(
                                         DirectConnectionMessage::tooLarge().localizedDescription));
        })
        .and_then([&](QByteArray &&body) {
            return DirectConnectionMessage::decode(std::move(body),
                                                   DirectConnectionMessage::ResponseMemory)
                .map_error(
                    [&](const Error &error) { return notUnderstood(error.localizedDescription); });
        });
}

Expected<void> DirectConnectionLink::send(const QByteArray &bytes, const EngineFuture &future) {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        if (isOver(future)) {
            return failure(lost());
        }
        size_t count = 0;
        ERR_clear_error();
        const int result = SSL_write_ex(m_session.get(), bytes.constData() + sent,
                                        static_cast<size_t>(bytes.size() - sent), &count);
        if (result == 1) {
            sent += static_cast<qsizetype>(count);
            noteProgress();
        } else if (!waitToGoOn(result, m_deadline, future)) {
            return failure(lost());
        }
    }
    return {};
}

Expected<QByteArray> DirectConnectionLink::receive(qsizetype count, const EngineFuture &future) {
    QByteArray bytes(count, Qt::Uninitialized);
    qsizetype received = 0;
    while (received < count) {
        if (isOver(future)) {
            return failure(lost());
        }
        size_t read = 0;
        ERR_clear_error();
        const int result = SSL_read_ex(m_session.get(), bytes.data() + received,
                                       static_cast<size_t>(count - received), &read);
        if (result == 1) {
            received += static_cast<qsizetype>(read);
            noteProgress();
        } else if (!waitToGoOn(result, m_deadline, future)) {
            return failure(lost());
        }
    }
    return bytes;
}

bool DirectConnectionLink::isOver(const EngineFuture &future) const {
    return m_deadline.hasExpired() || future.isCancelled();
}

bool DirectConnectionLink::waitToGoOn(int result, QDeadlineTimer deadline,
                                      const EngineFuture &future) const {
    switch (SSL_get_error(m_session.get(), result)) {
        case SSL_ERROR_WANT_READ:
            return waitFor(POLLIN, deadline, future);
        case SSL_ERROR_WANT_WRITE:
            return waitFor(POLLOUT, deadline, future);
        default:
            return false;
    }
}

bool DirectConnectionLink::waitFor(short events, QDeadlineTimer deadline,
                                   const EngineFuture &future) const {
    // A socket that is always ready must not prolong anything.
    return !deadline.hasExpired() &&
           CancellableWait(future, deadline).forDescriptor(m_socket, events);
}
