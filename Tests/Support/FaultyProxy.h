#pragma once

#include <QtCore/QByteArrayList>
#include <mutex>

#include "Support/ScriptedServer.h"

/// Forwards HTTP requests to a server on this computer, and makes one of them fail, or all from one
/// on. Thread-safe, but deliverHeld() blocks.
class FaultyProxy {
public:
    enum class Fault {
        None,
        /// Status 500 and 503; the server gets no request.
        InternalError,
        Unavailable,
        /// The connection is reset, and the server gets no request.
        Reset,
        /// The connection is reset after the server has performed the request.
        LostAnswer,
        /// The server gets half of the request, and both connections are closed.
        CutRequest,
        /// The client gets the header fields, or the header fields and half of the body. Of a
        /// response without body it gets half of the header fields.
        CutHeaders,
        CutBody,
        /// The server gets the request twice, and the client gets the second response.
        Duplicate,
        /// Nothing happens until the client gives up. The server gets the request later.
        Late
    };
    enum class Duration { Once, FromThenOn };

    /// `server` is the port of the server.
    explicit FaultyProxy(quint16 server);
    FaultyProxy(const FaultyProxy &) = delete;
    FaultyProxy &operator=(const FaultyProxy &) = delete;

    quint16 port() const { return m_proxy.port(); }

    /// Makes the exchange number `first` fail; the next one has the number 1. If `method` is not
    /// empty, only exchanges with this method are counted and fail.
    void setFault(Fault fault, qint64 first, Duration duration, const QByteArray &method = {});
    /// Returns whether any exchange has failed since the fault was set.
    bool hasFailed() const;
    /// Returns the method and the target of each exchange since the fault was set.
    QByteArrayList exchanges() const;
    /// Sends to the server what was held back since the fault was set.
    void deliverHeld();

private:
    void serve(ScriptedServer::Connection &connection);
    void fail(Fault fault, const QByteArray &request, ScriptedServer::Connection &connection);
    /// Counts the exchange and returns how it fails.
    Fault takeFault(const QByteArray &request);
    /// Returns the server's response to `request`.
    QByteArray forward(QByteArray request) const;
    /// Sends half of `request` to the server.
    void forwardHalf(const QByteArray &request) const;

    const quint16 m_server;
    mutable std::mutex m_mutex;
    // Guarded by `m_mutex`.
    Fault m_fault = Fault::None;
    Duration m_duration = Duration::Once;
    qint64 m_first = 1;
    QByteArray m_method;
    /// The number of exchanges with that method.
    qint64 m_count = 0;
    bool m_hasFailed = false;
    QByteArrayList m_exchanges;
    QByteArrayList m_held;
    /// Must be the last member: its thread uses the others.
    ScriptedServer m_proxy;
};
