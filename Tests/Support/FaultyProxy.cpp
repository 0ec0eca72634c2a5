#include "Support/FaultyProxy.h"

#include "Support/EventTimeout.h"

namespace {

/// Returns where the body of `message` begins.
qsizetype bodyStart(const QByteArray &message) {
    return message.indexOf("\r\n\r\n") + 4;
}

QByteArray headOf(const QByteArray &message) {
    const qsizetype start = bodyStart(message);
    return message.first(start < message.size() ? start : start / 2);
}

QByteArray halfOf(const QByteArray &message) {
    const qsizetype start = bodyStart(message);
    return start < message.size() ? message.first(start + (message.size() - start) / 2)
                                  : headOf(message);
}

}  // namespace

FaultyProxy::FaultyProxy(quint16 server)
    : m_server(server),
      m_proxy([this](ScriptedServer::Connection &connection) { serve(connection); },
              ScriptedServer::Order::AllAtOnce) {}

void FaultyProxy::setFault(Fault fault, qint64 first, Duration duration, const QByteArray &method) {
    const std::lock_guard lock(m_mutex);
    m_fault = fault;
    m_first = first;
    m_duration = duration;
    m_method = method;
    m_count = 0;
    m_hasFailed = false;
    m_exchanges.clear();
    m_held.clear();
}

bool FaultyProxy::hasFailed() const {
    const std::lock_guard lock(m_mutex);
    return m_hasFailed;
}

QByteArrayList FaultyProxy::exchanges() const {
    const std::lock_guard lock(m_mutex);
    return m_exchanges;
}

void FaultyProxy::deliverHeld() {
    QByteArrayList held;
    {
        const std::lock_guard lock(m_mutex);
        held.swap(m_held);
    }
    for (const QByteArray &request : std::as_const(held)) {
        forward(request);
    }
}

void FaultyProxy::serve(ScriptedServer::Connection &connection) {
    for (;;) {
        const QByteArray request = connection.readRequest();
        if (request.isEmpty()) {
            return;
        }
        const Fault fault = takeFault(request);
        if (fault == Fault::None) {
            connection.send(forward(request));
        } else {
            fail(fault, request, connection);
        }
    }
}

FaultyProxy::Fault FaultyProxy::takeFault(const QByteArray &request) {
    const std::lock_guard lock(m_mutex);
    m_exchanges.append(request.first(request.indexOf(" HTTP/")));
    if (!m_method.isEmpty() && !request.startsWith(m_method + ' ')) {
        return Fault::None;
    }
    ++m_count;
    const bool isFailing = m_duration == Duration::Once ? m_count == m_first : m_count >= m_first;
    m_hasFailed = m_hasFailed || isFailing;
    return isFailing ? m_fault : Fault::None;
}

void FaultyProxy::fail(Fault fault, const QByteArray &request,
                       ScriptedServer::Connection &connection) {
    switch (fault) {
        case Fault::None:
            break;
        case Fault::InternalError:
            connection.answer("500 Internal Server Error", "<html>No.</html>");
            break;
        case Fault::Unavailable:
            connection.answer("503 Service Unavailable", "<html>Later.</html>");
            break;
        case Fault::LostAnswer:
            forward(request);
            connection.reset();
            break;
        case Fault::Reset:
            connection.reset();
            break;
        case Fault::CutRequest:
            forwardHalf(request);
            connection.close();
            break;
        case Fault::CutHeaders:
            connection.send(headOf(forward(request)));
            connection.close();
            break;
        case Fault::CutBody:
            connection.send(halfOf(forward(request)));
            connection.close();
            break;
        case Fault::Duplicate:
            forward(request);
            connection.send(forward(request));
            break;
        case Fault::Late: {
            connection.waitUntilClosed();
            const std::lock_guard lock(m_mutex);
            m_held.append(request);
            break;
        }
    }
}

QByteArray FaultyProxy::forward(QByteArray request) const {
    QTcpSocket server;
    server.connectToHost(QHostAddress(QHostAddress::LocalHost), m_server);
    server.waitForConnected(EventTimeout);
    server.write(request.insert(request.indexOf("\r\n"), "\r\nConnection: close"));
    QByteArray response;
    while (server.waitForReadyRead(EventTimeout)) {
        response += server.readAll();
    }
    response += server.readAll();
    // The client's connection stays open.
    return response.replace("\r\nConnection: close", "");
}

void FaultyProxy::forwardHalf(const QByteArray &request) const {
    QTcpSocket server;
    server.connectToHost(QHostAddress(QHostAddress::LocalHost), m_server);
    server.waitForConnected(EventTimeout);
    server.write(halfOf(request));
    server.waitForBytesWritten(EventTimeout);
}
