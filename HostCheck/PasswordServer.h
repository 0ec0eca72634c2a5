#pragma once

#include <QtCore/QByteArrayList>
#include <QtNetwork/QTcpServer>

#include "Platform/Foundation/Url.h"

class QTcpSocket;

/// A web server on this computer that accepts no password: it responds to each request by asking
/// for one (Basic, RFC 7617). It serves while the event loop runs. Must be used on the main thread.
class PasswordServer {
public:
    /// Listens on a free port. Throws Checking::Broken if there is none.
    PasswordServer();

    /// Returns the address of a sync store at this server, with a user name that no other server
    /// has: a port may have been that of another server before.
    Url URL() const;
    /// Returns whether a client was asked for a password.
    bool hasAsked() const { return m_hasAsked; }
    /// Returns the credentials that were received, in order, as the protocol encodes them.
    const QByteArrayList &credentials() const { return m_credentials; }

private:
    /// Reads the request of `client`, which is deleted when the connection has ended, and responds.
    void serve(QTcpSocket &client);
    /// Notes the credentials of a request.
    void respond(const QByteArray &request);

    const QString m_user;
    QTcpServer m_server;
    bool m_hasAsked = false;
    QByteArrayList m_credentials;
};
