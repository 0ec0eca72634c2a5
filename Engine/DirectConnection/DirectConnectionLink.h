#pragma once

#include <openssl/ssl.h>

#include <QtCore/QByteArray>
#include <QtCore/QCborMap>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QString>
#include <chrono>
#include <memory>
#include <optional>

#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/Error.h"

struct addrinfo;

/// A client's end of one direct connection. Blocking, but not bound to a thread, as the operations
/// of a store are not; used by one at a time. TLS is OpenSSL's own, since a QSslSocket stays with
/// its thread. Whatever fails ends the connection; cancelling the future given ends waiting soon.
class DirectConnectionLink {
public:
    DirectConnectionLink();
    ~DirectConnectionLink();
    DirectConnectionLink(const DirectConnectionLink &) = delete;
    DirectConnectionLink &operator=(const DirectConnectionLink &) = delete;

    /// Connects, whoever answers: then `serverFingerprint` says who did. Called once.
    std::optional<Error> connect(const QString &host, quint16 port, const EngineFuture &future);
    /// Whether the server has not ended the connection yet. Between two exchanges.
    bool isConnected() const;
    /// That of the server's certificate.
    QByteArray serverFingerprint() const { return m_serverFingerprint; }

    /// Sends `request` and waits for its answer, for at most `patience` without any progress.
    std::optional<Error> exchange(const QCborMap &request, QCborMap &answer,
                                  std::chrono::seconds patience, const EngineFuture &future);
    void disconnect();

private:
    bool connectTo(const addrinfo &address, const EngineFuture &future);
    std::optional<Error> startEncryption(const EngineFuture &future);
    bool send(const QByteArray &bytes, std::chrono::seconds patience, const EngineFuture &future);
    bool receive(QByteArray &bytes, std::chrono::seconds patience, const EngineFuture &future);
    bool waitToGoOn(int result, QDeadlineTimer deadline, const EngineFuture &future) const;
    bool waitFor(short events, QDeadlineTimer deadline, const EngineFuture &future) const;

    std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> m_context;
    std::unique_ptr<SSL, decltype(&SSL_free)> m_session;
    int m_socket = -1;
    QString m_host;
    QByteArray m_serverFingerprint;
};
