#include "Engine/Stores/Dropbox/DropboxRedirectListener.h"

#include <QtCore/QTimer>
#include <QtCore/QUrlQuery>
#include <QtNetwork/QTcpSocket>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

const QString RedirectPath = QStringLiteral("/dropbox");

/// Browsers open some connections in advance and leave them unused.
constexpr qsizetype MostConnections = 32;
constexpr qsizetype LongestRequest = 16384;
constexpr int MillisecondsToDeliver = 2000;

QByteArray httpAnswer(const QByteArray &status, const QString &text) {
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

/// Returns the value of the parameter of that name; null unless there is exactly one.
QString onlyValue(const QUrlQuery &query, const QString &name) {
    const QStringList values = query.allQueryItemValues(name, QUrl::FullyDecoded);
    return values.size() == 1 ? values.first() : QString();
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
                               "The response of the web browser cannot be received: %1.",
                               m_server.errorString()));
}

QString DropboxRedirectListener::address() const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(m_server.serverPort()).arg(RedirectPath);
}

Expected<QString> DropboxRedirectListener::wait(const EngineFuture &future,
                                                std::chrono::milliseconds limit) {
    QTimer::singleShot(limit, &m_waiting, &QEventLoop::quit);
    const auto quit = [this] {
        QMetaObject::invokeMethod(&m_waiting, &QEventLoop::quit, Qt::QueuedConnection);
    };
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
        answer(socket, request);
    } else if (request.size() == LongestRequest) {
        socket->abort();
    }
}

void DropboxRedirectListener::answer(QTcpSocket *socket, const QByteArray &request) {
    const QByteArrayList line = request.left(request.indexOf("\r\n")).split(' ');
    const QUrl target = QUrl::fromEncoded(line.value(1));
    const bool isOurs = line.size() == 3 && line.first() == "GET" && target.isRelative() &&
                        target.path() == RedirectPath;
    const std::optional<Expected<QString>> result =
        isOurs && !m_result ? resultOf(target.query(QUrl::FullyEncoded)) : std::nullopt;
    if (result) {
        m_result = result;
        m_waiting.quit();
        socket->write(httpAnswer(
            "200 OK", localizedSyncString("You can close this window now and return to Velmora.")));
    } else {
        socket->write(httpAnswer(isOurs ? "400 Bad Request" : "404 Not Found",
                                 localizedSyncString("Velmora did not request this page.")));
    }
    socket->disconnectFromHost();
    if (socket->state() != QAbstractSocket::UnconnectedState) {
        socket->waitForDisconnected(MillisecondsToDeliver);
    }
}

std::optional<Expected<QString>> DropboxRedirectListener::resultOf(const QString &query) const {
    const QUrlQuery parameters(query);
    if (onlyValue(parameters, QStringLiteral("state")) != m_state) {
        return std::nullopt;
    }
    const QString code = onlyValue(parameters, QStringLiteral("code"));
    if (parameters.hasQueryItem(QStringLiteral("error"))) {
        return failure(engineError(
            EngineErrorCode::AccessDenied,
            localizedSyncString(
                "Access to Dropbox was denied in the web browser. Try again and allow it.")));
    }
    if (code.isEmpty()) {
        return failure(engineError(
            EngineErrorCode::StoreUnreachable,
            localizedSyncString("The web browser sent an invalid response. Sign in again.")));
    }
    return code;
}
