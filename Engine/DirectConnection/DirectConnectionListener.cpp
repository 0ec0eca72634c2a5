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
      m_questions({limits.pauseAfterRefusal, limits.longestPause}, limits.refusalsInAnHour) {
    m_shortage.setSingleShot(true);
    m_shortage.setInterval(limits.memoryTime);
    connect(&m_shortage, &QTimer::timeout, this, &DirectConnectionListener::endShortage);
}

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
        [=, this] { return hasMemory(number); },
    };
    m_connections.push_back(
        {number, std::make_unique<DirectConnectionSession>(descriptor, m_server, requests)});
    connect(
        m_connections.back().session.get(), &DirectConnectionSession::ended, this,
        [this, number] { remove(number); }, Qt::QueuedConnection);
    connect(m_connections.back().session.get(), &DirectConnectionSession::released, this,
            &DirectConnectionListener::wakeWaiting, Qt::QueuedConnection);
}

bool DirectConnectionListener::makeRoom() {
    if (std::ssize(m_connections) < m_server.limits.connections) {
        return true;
    }
    auto oldest = std::find_if(m_connections.begin(), m_connections.end(),
                               [](const Connection &one) { return one.session->isExpendable(); });
    if (oldest == m_connections.end()) {
        oldest =
            std::find_if(m_connections.begin(), m_connections.end(),
                         [this](const Connection &one) { return isBeyondShare(*one.session); });
    }
    if (oldest == m_connections.end()) {
        return false;
    }
    remove(oldest->number);
    return true;
}

bool DirectConnectionListener::isBeyondShare(const DirectConnectionSession &session) const {
    const QString client = session.authorizedClient();
    const auto count = std::count_if(
        m_connections.begin(), m_connections.end(),
        [&](const Connection &one) { return one.session->authorizedClient() == client; });
    return !client.isEmpty() && count > m_server.limits.connectionsOfClient;
}

void DirectConnectionListener::remove(quint64 number) {
    if (m_askedFor == number) {
        m_askedFor.reset();
        m_questions.close(false);
        m_mainThread.withdrawQuestion();
    }
    std::erase_if(m_connections, [&](const Connection &one) { return one.number == number; });
    m_waiting.remove(number);
    wakeWaiting();
}

bool DirectConnectionListener::hasMemory(quint64 number) {
    qsizetype taken = 0;
    for (const Connection &one : m_connections) {
        taken += one.number == number ? 0 : one.session->memory();
    }
    m_waiting.remove(number);
    const bool isLeft = taken < m_server.limits.memory;
    if (!isLeft) {
        m_waiting.push_back(number);
    }
    // A session that gets memory may use it for that time.
    if (!m_waiting.empty() && (isLeft || !m_shortage.isActive())) {
        m_shortage.start();
    }
    return isLeft;
}

void DirectConnectionListener::wakeWaiting() {
    const std::list<quint64> waiting = m_waiting;
    for (const quint64 number : waiting) {
        if (DirectConnectionSession *session = sessionOf(number)) {
            session->goOn();
        }
    }
    if (m_waiting.empty()) {
        m_shortage.stop();
    }
}

void DirectConnectionListener::endShortage() {
    const auto largest =
        std::max_element(m_connections.begin(), m_connections.end(),
                         [](const Connection &one, const Connection &other) {
                             return one.session->memory() < other.session->memory();
                         });
    if (largest != m_connections.end()) {
        remove(largest->number);
    }
}

DirectConnectionSession *DirectConnectionListener::sessionOf(quint64 number) const {
    const auto position = std::find_if(m_connections.begin(), m_connections.end(),
                                       [&](const Connection &one) { return one.number == number; });
    return position == m_connections.end() ? nullptr : position->session.get();
}

bool DirectConnectionListener::ask(quint64 session, const DirectConnectionPairing &client) {
    if (!m_questions.open(sessionOf(session)->peer())) {
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
    m_questions.close(isAccepted);
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
