#pragma once

#include <QtNetwork/QTcpServer>

#include "Platform/Foundation/Url.h"

class QTcpSocket;

/// A web server on this computer with an empty sync store (WebDAV, RFC 4918). It responds to no
/// request before respond() is called, so that an operation with it runs until then or until it is
/// cancelled. It serves while the event loop runs. Must be used on the main thread.
class StoreServer {
public:
    /// Listens on a free port, and holds every request. Throws Checking::Broken if there is none.
    StoreServer();

    /// Returns the address of the sync store.
    Url URL() const;
    /// Returns whether a request waits for its response.
    bool isAsked() const { return !m_held.isEmpty(); }
    /// Responds to the requests that wait and, until hold() is called, all others at once.
    void respond();
    /// Responds to all further requests at once, until hold() is called. Those that wait go on
    /// waiting.
    void respondToOthers() { m_isHolding = false; }
    /// Responds to no request from now on.
    void hold() { m_isHolding = true; }

private:
    struct Request {
        QByteArray method;
        QByteArray path;
        QTcpSocket *client;
    };

    /// Reads the requests of `client`, which is deleted when the connection has ended.
    void serve(QTcpSocket &client);
    /// Holds the request that `bytes` are, or responds to it.
    void take(QTcpSocket &client, const QByteArray &bytes);
    static void respondTo(const Request &request);
    static QByteArray responseTo(const Request &request);

    /// Requests whose clients have not gone.
    QList<Request> m_held;
    bool m_isHolding = true;
    /// Destroyed first, with its sockets, which end requests.
    QTcpServer m_server;
};
