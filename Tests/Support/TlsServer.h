#pragma once

#include <openssl/ssl.h>

#include <QtCore/QByteArray>
#include <atomic>
#include <functional>
#include <future>
#include <thread>

struct DirectConnectionIdentity;

/// A TLS server on a port of this computer that does what a sound one does not. It handles one
/// connection, on its own thread, until the client has closed it. The client must do so before this
/// object is destroyed.
class TlsServer {
public:
    /// Called after the handshake. OpenSSL blocks in it.
    using Script = std::function<void(SSL *session)>;

    /// `version` is the only one that it speaks, such as TLS1_2_VERSION.
    TlsServer(const DirectConnectionIdentity &identity, int version, Script script = &keepSilent);
    ~TlsServer();
    TlsServer(const TlsServer &) = delete;
    TlsServer &operator=(const TlsServer &) = delete;

    quint16 port() const { return m_port; }
    /// Returns whether the handshake of the connection, which must have begun, succeeds. Blocks
    /// until that is known.
    bool isEncrypted() { return m_isEncrypted.get(); }

    /// Sends nothing.
    static void keepSilent(SSL *session);
    /// Sends messages without data without end.
    static void updateKeys(SSL *session);

private:
    void serve(const QByteArray &identity, int version, const Script &script,
               std::promise<quint16> port, std::promise<bool> isEncrypted);

    std::future<bool> m_isEncrypted;
    std::atomic<bool> m_isEnding = false;
    quint16 m_port = 0;
    std::thread m_thread;
};
