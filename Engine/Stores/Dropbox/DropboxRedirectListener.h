#pragma once

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtNetwork/QTcpServer>
#include <chrono>

#include "Engine/Foundation/EngineFuture.h"
#include "Platform/Foundation/Expected.h"

/// Where the browser is sent when the person has signed in, or has refused: an address of this
/// computer's loopback interface (RFC 8252, 7.3) that is served for just as long. Anyone on this
/// computer can call it, and every page in the browser; so nothing is believed but the answer to
/// the one question of that `state` (RFC 6749, 10.12), and whatever else comes is turned away
/// without an end to the waiting. Lives on the thread that made it, which need not have an event
/// loop.
class DropboxRedirectListener : public QObject {
    Q_OBJECT
public:
    explicit DropboxRedirectListener(const QString &state);

    /// Begins to serve at `port`, 0 for one that is free.
    Expected<void> listen(quint16 port);
    /// The address, once that is done.
    QString address() const;
    /// Waits for the answer, but not longer than `limit`: the authorization code, or why there is
    /// none. The person is told in the browser that they may close its window.
    Expected<QString> wait(const EngineFuture &future, std::chrono::milliseconds limit);

private:
    void accept();
    void read(QTcpSocket *socket);
    void answer(QTcpSocket *socket, const QByteArray &request);
    std::optional<Expected<QString>> resultOf(const QString &query) const;

    const QString m_state;
    QList<QTcpSocket *> m_sockets;
    std::optional<Expected<QString>> m_result;
    QEventLoop m_waiting;
    /// The last, since the sockets that go with it say good-bye to the others.
    QTcpServer m_server;
};
