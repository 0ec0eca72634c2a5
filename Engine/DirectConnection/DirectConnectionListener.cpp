#include "Engine/DirectConnection/DirectConnectionListener.h"

#include <unistd.h>

#include <algorithm>

namespace {

QSslConfiguration configurationFor(const DirectConnectionIdentity &identity) {
    QSslConfiguration configuration;
    configuration.setProtocol(QSsl::TlsV1_3OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setLocalCertificate(identity.certificate);
    configuration.setPrivateKey(identity.privateKey);
    return configuration;
}

}  // namespace

DirectConnectionListener::DirectConnectionListener(const DirectConnectionIdentity &identity,
                                                   const DirectConnectionPackage &package,
                                                   const DirectConnection::Limits &limits,
                                                   const MainThread &mainThread)
    : m_server{configurationFor(identity), package, limits},
      m_mainThread(mainThread),
      m_questionLimit({limits.pauseAfterRefusal, limits.longestPause}) {}

DirectConnectionListener::~DirectConnectionListener() = default;

void DirectConnectionListener::incomingConnection(qintptr descriptor) {
    if (!makeRoom()) {
        ::close(static_cast<int>(descriptor));
        return;
    }
    const quint64 number = ++m_lastNumber;
    const DirectConnectionSession::Requests requests{
        [=, this](const DirectConnectionPairing &client) { return ask(number, client); },
        [=, this](const QString &name) { m_mainThread.prepareStore(number, name); },
        [this] { m_mainThread.storeDidChange(); },
    };
    m_connections.push_back(
        {number, std::make_unique<DirectConnectionSession>(descriptor, m_server, requests)});
    connect(
        m_connections.back().session.get(), &DirectConnectionSession::ended, this,
        [this, number] { remove(number); }, Qt::QueuedConnection);
}

bool DirectConnectionListener::makeRoom() {
    if (std::ssize(m_connections) < m_server.limits.connections) {
        return true;
    }
    const auto oldest =
        std::find_if(m_connections.begin(), m_connections.end(),
                     [](const Connection &one) { return one.session->isExpendable(); });
    if (oldest == m_connections.end()) {
        return false;
    }
    remove(oldest->number);
    return true;
}

void DirectConnectionListener::remove(quint64 number) {
    if (m_askedFor == number) {
        m_askedFor.reset();
        m_questionLimit.close(false);
        m_mainThread.withdrawQuestion();
    }
    std::erase_if(m_connections, [&](const Connection &one) { return one.number == number; });
}

DirectConnectionSession *DirectConnectionListener::sessionOf(quint64 number) const {
    const auto position = std::find_if(m_connections.begin(), m_connections.end(),
                                       [&](const Connection &one) { return one.number == number; });
    return position == m_connections.end() ? nullptr : position->session.get();
}

bool DirectConnectionListener::ask(quint64 session, const DirectConnectionPairing &client) {
    if (!m_questionLimit.open()) {
        return false;
    }
    m_askedFor = session;
    m_mainThread.ask(session, client);
    return true;
}

void DirectConnectionListener::decide(quint64 session, bool isAccepted) {
    m_calls.post([=, this] { carryOut(session, isAccepted); });
}

void DirectConnectionListener::carryOut(quint64 number, bool isAccepted) {
    if (m_askedFor != number) {
        return;
    }
    m_askedFor.reset();
    m_questionLimit.close(isAccepted);
    if (DirectConnectionSession *session = sessionOf(number)) {
        session->decide(isAccepted);
    }
}

void DirectConnectionListener::proceed(quint64 number) {
    m_calls.post([=, this] {
        if (DirectConnectionSession *session = sessionOf(number)) {
            session->proceed();
        }
    });
}
