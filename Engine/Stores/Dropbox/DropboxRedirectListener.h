#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtNetwork/QTcpServer>
#include <chrono>

#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/CallQueue.h"
#include "Platform/Foundation/Expected.h"

/// Receives the browser's redirect after the user has signed in or refused: a server at a loopback
/// address (RFC 8252, section 7.3) that exists only as long as this object. Every program and every
/// web page on this computer can send requests to it, so only the response with the given `state`
/// (RFC 6749, section 10.12) is accepted; all other requests are rejected without ending the wait.
/// Must be used on the thread that created it, which need not run an event loop.
class DropboxRedirectListener : public QObject {
    Q_OBJECT
public:
    /// `state` must be unguessable, since it is the only proof that a request results from this
    /// sign-in.
    explicit DropboxRedirectListener(const QString &state);

    /// Starts to listen at `port` of 127.0.0.1; 0 selects a free port. Fails with the code
    /// StoreUnreachable if the port cannot be used. Must be called once. Connections are accepted
    /// only while wait() runs.
    Expected<void> listen(quint16 port);
    /// Returns the redirect address, with the IP literal instead of "localhost" as RFC 8252,
    /// section 8.3, recommends. Valid after listen() has succeeded.
    QString address() const;
    /// Waits for the redirect, at most for `limit` or until `future` is cancelled, running an event
    /// loop; then for the browser to receive its page, at most two seconds. Returns the
    /// authorization code, or an error: AccessDenied if the user refused or the time expired,
    /// StoreUnreachable if the redirect contains no code, or Cancelled. The browser shows that its
    /// window can be closed. Must be called once.
    Expected<QString> wait(const EngineFuture &future, std::chrono::milliseconds limit);

private:
    /// Handle connections; the oldest is closed if there are more than 32. A request of 16 KiB
    /// without an end closes its connection.
    void accept();
    void read(QTcpSocket *socket);
    void respond(QTcpSocket *socket, const QByteArray &request);

    const QString m_state;
    QList<QTcpSocket *> m_sockets;
    std::optional<Expected<QString>> m_result;
    QEventLoop m_waiting;
    CallQueue m_calls;
    /// Must be the last member: destroying the server closes its sockets, whose slots use the
    /// members above.
    QTcpServer m_server;
};
