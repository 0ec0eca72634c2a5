#include "Engine/Stores/Dropbox/DropboxRedirectListener.h"

#include <QtCore/QTimer>
#include <QtNetwork/QTcpSocket>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxRedirect.h"
#include "Host/SyncStrings.h"

namespace {

/// Browsers open some connections in advance and leave them unused.
constexpr qsizetype MostConnections = 32;
constexpr qsizetype LongestRequest = 16384;
constexpr int MillisecondsToDeliver = 2000;

QByteArray httpResponse(const QByteArray &status, const QString &text) {
    const QString page =
        QStringLiteral(
            "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>Velmora</title></head>"
            "<body style=\"font-family: sans-serif; margin: 4em\"><p>%1</p></body></html>\n")
            .arg(text.toHtmlEscaped());
    const QByteArray body = page.toUtf8();
    return "HTTP/1.1 " + status + "\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: " +
           QByteArray::number(body.size()) +
           "\r\nCache-Control: no-store\r\nReferrer-Policy: no-referrer\r\n"
           "Connection: close\r\n\r\n" +
           body;
}

}  // namespace

DropboxRedirectListener::DropboxRedirectListener(const QString &state) : m_state(state) {
    connect(&m_server, &QTcpServer::newConnection, this, &DropboxRedirectListener::accept);
}

Expected<void> DropboxRedirectListener::listen(quint16 port) {
    if (m_server.listen(QHostAddress::LocalHost, port)) {
        return {};
    }
    return failure(engineError(EngineErrorCode::StoreUnreachable,
                               "The response of the web browser cannot be received: %1. Quit the "
                               "program that uses this port, then sign in again.",
                               m_server.errorString()));
}

QString DropboxRedirectListener::address() const {
    return QStringLiteral("http://127.0.0.1:%1%2")
        .arg(m_server.serverPort())
        .arg(DropboxRedirect::Path);
}

Expected<QString> DropboxRedirectListener::wait(const EngineFuture &future,
                                                std::chrono::milliseconds limit) {
    QTimer::singleShot(limit, &m_waiting, &QEventLoop::quit);
    // Later, since the loop may not run yet.
    const auto quit = [this] { m_calls.post([this] { m_waiting.quit(); }); };
    const std::stop_callback cancellation(future.cancellation(), quit);
    if (!m_result) {
        m_waiting.exec();
    }
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    return m_result.value_or(
        failure(engineError(EngineErrorCode::AccessDenied,
                            localizedSyncString("The sign-in to Dropbox timed out. Try again."))));
}

void DropboxRedirectListener::accept() {
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        if (m_sockets.size() >= MostConnections) {
            m_sockets.takeFirst()->abort();
        }
        m_sockets.append(socket);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            m_sockets.removeAll(socket);
            socket->deleteLater();
        });
    }
}

void DropboxRedirectListener::read(QTcpSocket *socket) {
    const QByteArray request = socket->peek(LongestRequest);
    if (request.contains("\r\n\r\n")) {
        socket->skip(socket->bytesAvailable());
        respond(socket, request);
    } else if (request.size() == LongestRequest) {
        socket->abort();
    }
}

void DropboxRedirectListener::respond(QTcpSocket *socket, const QByteArray &request) {
    const Expected<DropboxRedirect> redirect = DropboxRedirect::parse(request);
    const std::optional<Expected<QString>> result =
        redirect && !m_result ? redirect->result(m_state) : std::nullopt;
    if (result) {
        m_result = result;
        m_waiting.quit();
        socket->write(httpResponse(
            "200 OK", localizedSyncString("You can close this window now and return to Velmora.")));
    } else {
        const Error error = redirect ? DropboxRedirect::notRequested() : redirect.error();
        socket->write(httpResponse(redirect ? "400 Bad Request" : "404 Not Found",
                                   error.localizedDescription));
    }
    socket->disconnectFromHost();
    if (socket->state() != QAbstractSocket::UnconnectedState) {
        socket->waitForDisconnected(MillisecondsToDeliver);
    }
}
