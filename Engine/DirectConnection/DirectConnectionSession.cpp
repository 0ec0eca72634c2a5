#include "Engine/DirectConnection/DirectConnectionSession.h"

#include <QtCore/QCborArray>
#include <utility>

#include "Engine/DirectConnection/DirectConnectionClients.h"
#include "Engine/DirectConnection/DirectConnectionIdentity.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/Foundation/EngineError.h"

using namespace DirectConnectionMessage;

namespace {

constexpr qint64 ReadBufferSize = 65536;
/// Contents are sent in pieces of this size, so that the copies that are made of them are small.
constexpr qsizetype PieceSize = 262144;
/// A message that is not larger needs no permission to be received.
constexpr qsizetype SmallMessage = 65536;

/// Returns the response for `error`, without its text, which is meant for this computer's user.
QCborMap refusal(const Error &error) {
    QCborMap response = ofType(Failed);
    response[Reason] = QString();
    for (const auto &[code, reason] : {std::pair(EngineErrorCode::BlobMissing, BlobMissing),
                                       std::pair(EngineErrorCode::BlobRefused, BlobRefused),
                                       std::pair(EngineErrorCode::StoreFull, StoreFull),
                                       std::pair(EngineErrorCode::NotServed, NotServed)}) {
        if (isEngineError(error, code)) {
            response[Reason] = reason;
        }
    }
    return response;
}

QCborValue valueOf(const QStringList &names) {
    return QCborArray::fromStringList(names);
}

QCborValue valueOf(BlobStore::Written written) {
    return written == BlobStore::Written::New;
}

template <class Value>
QCborMap responseWith(const QString &key, const Expected<Value> &result) {
    if (!result) {
        return refusal(result.error());
    }
    QCborMap response = ofType(Done);
    response[key] = valueOf(*result);
    return response;
}

}  // namespace

DirectConnectionSession::DirectConnectionSession(qintptr descriptor, const Server &server,
                                                 Requests requests)
    : m_server(server), m_requests(std::move(requests)) {
    connect(&m_timer, &QTimer::timeout, this, &DirectConnectionSession::end);
    connect(&m_socket, &QSslSocket::disconnected, this, &DirectConnectionSession::end);
    connect(&m_socket, &QSslSocket::errorOccurred, this, &DirectConnectionSession::end);
    connect(&m_socket, &QSslSocket::readyRead, this, &DirectConnectionSession::readMore);
    connect(&m_socket, &QSslSocket::encryptedBytesWritten, this,
            &DirectConnectionSession::sendMore);
    m_timer.setSingleShot(true);
    m_timer.start(server.limits.greetingTime);
    m_client.serverFingerprint =
        DirectConnectionIdentity::fingerprint(server.configuration.localCertificate().toDer());
    m_socket.setSocketDescriptor(descriptor);
    m_socket.setReadBufferSize(ReadBufferSize);
    m_socket.setSslConfiguration(server.configuration);
    m_socket.startServerEncryption();
}

DirectConnectionSession::~DirectConnectionSession() {
    m_socket.disconnect(this);
    m_socket.abort();
}

bool DirectConnectionSession::isExpendable() const {
    return m_stage != Stage::Asking && authorizedClient().isEmpty();
}

QString DirectConnectionSession::authorizedClient() const {
    const bool isAuthorized = m_stage == Stage::Preparing || m_stage == Stage::Serving;
    return isAuthorized ? m_client.clientName : QString();
}

void DirectConnectionSession::end() {
    if (m_stage != Stage::Ended) {
        m_stage = Stage::Ended;
        m_timer.stop();
        Q_EMIT ended();
    }
}

void DirectConnectionSession::readMore() {
    const bool isListening =
        m_stage == Stage::Greeting || m_stage == Stage::Revealing || m_stage == Stage::Serving;
    const bool canGoOn = m_socket.bytesAvailable() > 0 || m_isWaiting;
    if (!isListening || isAnswering() || !canGoOn) {
        return;
    }
    if (m_stage == Stage::Serving && m_received.isEmpty()) {
        m_timer.start(m_server.limits.messageTime);
    }
    m_isWaiting = false;
    // The response to a message may be as large as one.
    if (readMessage() && isMemoryLeft()) {
        takeMessage();
    }
    if (!m_isWaiting) {
        // Let other sessions run in between.
        QMetaObject::invokeMethod(this, &DirectConnectionSession::readMore, Qt::QueuedConnection);
    }
}

bool DirectConnectionSession::isMemoryLeft() {
    m_isWaiting = m_stage == Stage::Serving && !m_requests.hasMemory();
    return !m_isWaiting;
}

void DirectConnectionSession::takeMessage() {
    if (m_stage == Stage::Serving) {
        m_timer.start(m_server.limits.idleTime);
    }
    m_size = 0;
    QByteArray body = std::exchange(m_received, {});
    body.remove(0, LengthSize);
    if (const Expected<Received> message = decode(std::move(body), RequestMemory)) {
        handle(*message);
    } else {
        // The sender learns it from the end of the connection. A log of it could be flooded.
        end();
    }
    Q_EMIT released();
}

qint64 DirectConnectionSession::bytesToWrite() const {
    return m_socket.bytesToWrite() + m_socket.encryptedBytesToWrite();
}

qsizetype DirectConnectionSession::memory() const {
    return m_size + m_contents.size() + bytesToWrite();
}

/// Reads what has arrived of the next message.
bool DirectConnectionSession::readMessage() {
    if (m_received.size() < LengthSize) {
        m_received += m_socket.read(LengthSize - m_received.size());
    }
    if (m_received.size() < LengthSize) {
        return false;
    }
    const qsizetype size = length(m_received);
    if (size > (m_stage == Stage::Serving ? Limit : LimitBeforeAuthorization)) {
        end();
        return false;
    }
    if (m_size == 0 && size > SmallMessage && !isMemoryLeft()) {
        return false;
    }
    m_size = LengthSize + size;
    // Growing in steps takes up to twice as much.
    m_received.reserve(m_size);
    // read() allocates as much as it may read, for each of the many pieces that arrive.
    m_received += m_socket.read(std::min(m_size - m_received.size(), m_socket.bytesAvailable()));
    return isComplete();
}

void DirectConnectionSession::handle(const Received &received) {
    const QCborMap &message = received.values;
    const QString type = message[Type].toString();
    if (m_stage == Stage::Serving) {
        serve(received);
    } else if (m_stage == Stage::Greeting && type == Hello) {
        greet(message);
    } else if (m_stage == Stage::Greeting && type == Pair) {
        beginPairing(message);
    } else if (m_stage == Stage::Revealing && type == Reveal) {
        reveal(message);
    } else {
        end();
    }
}

void DirectConnectionSession::greet(const QCborMap &message) {
    m_client.clientName = message[Name].toString();
    m_client.clientSecret = message[Secret].toByteArray();
    if (isAuthorized()) {
        prepare();
    }
}

bool DirectConnectionSession::isAuthorized() {
    const Expected<bool> isAuthorized =
        DirectConnectionClients::isAuthorized(m_client.clientName, m_client.clientSecret);
    if (!isAuthorized.value_or(false)) {
        sendLast(isAuthorized ? Refused : Busy);
    }
    return isAuthorized.value_or(false);
}

void DirectConnectionSession::beginPairing(const QCborMap &message) {
    m_client.clientName = message[Name].toString();
    m_client.serverNonce = DirectConnectionPairing::random();
    m_commitment = message[Commitment].toByteArray();
    if (!DirectConnectionClients::isName(m_client.clientName)) {
        end();
        return;
    }
    m_stage = Stage::Revealing;
    QCborMap response = ofType(Pair);
    response[Nonce] = m_client.serverNonce;
    send(response);
}

void DirectConnectionSession::reveal(const QCborMap &message) {
    m_client.clientNonce = message[Nonce].toByteArray();
    m_client.clientSecret = message[Secret].toByteArray();
    const bool isSound =
        m_client.clientNonce.size() == DirectConnectionPairing::RandomSize &&
        m_client.clientSecret.view().size() == DirectConnectionPairing::RandomSize &&
        m_client.commitment() == m_commitment;
    if (!isSound) {
        end();
    } else if (m_requests.ask(m_client)) {
        m_stage = Stage::Asking;
        m_timer.start(m_server.limits.askingTime);
    } else {
        sendLast(Busy);
    }
}

void DirectConnectionSession::decide(bool isAccepted) {
    if (m_stage != Stage::Asking) {
        return;
    }
    if (isAccepted) {
        DirectConnectionClients::authorize(m_client.clientName, m_client.clientSecret);
        prepare();
    } else {
        sendLast(Refused);
    }
}

void DirectConnectionSession::prepare() {
    m_stage = Stage::Preparing;
    m_timer.start(m_server.limits.idleTime);
    m_requests.prepareStore(m_client.clientName);
}

void DirectConnectionSession::proceed() {
    if (m_stage == Stage::Preparing) {
        m_stage = Stage::Serving;
        m_timer.start(m_server.limits.idleTime);
        send(ofType(Welcome));
        readMore();
    }
}

void DirectConnectionSession::serve(const Received &request) {
    if (!isAuthorized()) {
        return;
    }
    const QCborMap &values = request.values;
    if (values[Type].toString() == Read) {
        const qint64 limit = qBound(0, values[SizeLimit].toInteger(), ContentsLimit);
        sendContents(m_server.package.read(values[Name].toString(), limit));
    } else {
        send(responseTo(request));
    }
}

QCborMap DirectConnectionSession::responseTo(const Received &received) const {
    const QCborMap &request = received.values;
    const DirectConnectionPackage &package = m_server.package;
    const QString type = request[Type].toString();
    const QString name = request[Name].toString();
    if (type == List) {
        return responseWith(Names, package.list(request[Folder].toString()));
    }
    if (type == Write && received.contents) {
        QCborMap response = responseWith(IsNew, package.writeIfAbsent(name, *received.contents));
        m_requests.storeDidChange();
        return response;
    }
    if (type == Remove) {
        const Expected<void> removed = package.remove(name);
        m_requests.storeDidChange();
        return removed ? ofType(Done) : refusal(removed.error());
    }
    return ofType(Failed);
}

void DirectConnectionSession::send(const QCborMap &message) {
    m_socket.write(encode(message));
}

void DirectConnectionSession::sendContents(const Expected<QByteArray> &contents) {
    if (!contents) {
        send(refusal(contents.error()));
        return;
    }
    m_contents = *contents;
    m_sent = 0;
    m_socket.write(encodeBeforeContents(ofType(Done), m_contents.size()));
}

void DirectConnectionSession::sendMore() {
    const qsizetype left = m_contents.size() - m_sent;
    if (left > 0 && bytesToWrite() < PieceSize) {
        const qsizetype size = std::min(left, PieceSize);
        m_socket.write(m_contents.constData() + m_sent, size);
        m_sent += size;
    }
    if (m_sent == m_contents.size()) {
        m_contents.clear();
        m_sent = 0;
    }
    if (!isAnswering()) {
        Q_EMIT released();
        // Later, so that sessions that wait for memory are served first.
        QMetaObject::invokeMethod(this, &DirectConnectionSession::readMore, Qt::QueuedConnection);
    }
}

void DirectConnectionSession::sendLast(const QString &type) {
    // Ends when the client has received the message, or at the timeout.
    m_stage = Stage::Leaving;
    m_timer.start(m_server.limits.greetingTime);
    send(ofType(type));
    m_socket.disconnectFromHost();
}
