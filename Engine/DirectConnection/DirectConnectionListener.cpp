#include "Engine/DirectConnection/DirectConnectionListener.h"

#include <unistd.h>

#include <algorithm>

#include "Engine/DirectConnection/DirectConnectionSession.h"

DirectConnectionListener::DirectConnectionListener(const DirectConnectionIdentity &identity,
                                                   const DirectConnectionPackage &package,
                                                   const DirectConnectionLimits &limits,
                                                   const MainThread &mainThread)
    : m_package(package), m_limits(limits), m_mainThread(mainThread) {
    m_configuration.setProtocol(QSsl::TlsV1_3OrLater);
    m_configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    m_configuration.setLocalCertificate(identity.certificate);
    m_configuration.setPrivateKey(identity.privateKey);
}

DirectConnectionListener::~DirectConnectionListener() = default;

QByteArray DirectConnectionListener::fingerprint() const {
    return DirectConnectionIdentity::fingerprint(m_configuration.localCertificate().toDer());
}

void DirectConnectionListener::incomingConnection(qintptr descriptor) {
    if (!makeRoom()) {
        ::close(static_cast<int>(descriptor));
        return;
    }
    const quint64 number = ++m_lastNumber;
    m_connections.push_back({number, std::make_unique<DirectConnectionSession>(descriptor, *this)});
    connect(
        m_connections.back().session.get(), &DirectConnectionSession::ended, this,
        [this, number] { remove(number); }, Qt::QueuedConnection);
}

bool DirectConnectionListener::makeRoom() {
    if (std::ssize(m_connections) < m_limits.connections) {
        return true;
    }
    const auto oldest =
        std::find_if(m_connections.begin(), m_connections.end(),
                     [](const Connection &one) { return one.session->isExpendable(); });
    if (oldest == m_connections.end()) {
        return false;
    }
    m_connections.erase(oldest);
    return true;
}

void DirectConnectionListener::remove(quint64 number) {
    std::erase_if(m_connections, [&](const Connection &one) { return one.number == number; });
}

quint64 DirectConnectionListener::numberOf(const DirectConnectionSession &session) const {
    return std::find_if(m_connections.begin(), m_connections.end(),
                        [&](const Connection &one) { return one.session.get() == &session; })
        ->number;
}

DirectConnectionSession *DirectConnectionListener::sessionOf(quint64 number) const {
    const auto position = std::find_if(m_connections.begin(), m_connections.end(),
                                       [&](const Connection &one) { return one.number == number; });
    return position == m_connections.end() ? nullptr : position->session.get();
}

bool DirectConnectionListener::ask(const DirectConnectionSession &session,
                                   const DirectConnectionPairing &client) {
    if (m_askedFor || !m_pause.hasExpired()) {
        return false;
    }
    m_askedFor = numberOf(session);
    m_mainThread.ask(client);
    return true;
}

void DirectConnectionListener::decide(bool isAccepted) {
    DirectConnectionSession *session = m_askedFor ? sessionOf(*m_askedFor) : nullptr;
    m_askedFor.reset();
    if (!isAccepted) {
        m_pause = QDeadlineTimer(m_limits.pauseAfterRefusal);
    }
    if (session) {
        session->decide(isAccepted);
    }
}

void DirectConnectionListener::prepareStore(const DirectConnectionSession &session) {
    m_mainThread.prepareStore(numberOf(session));
}

void DirectConnectionListener::proceed(quint64 number) {
    if (DirectConnectionSession *session = sessionOf(number)) {
        session->proceed();
    }
}
