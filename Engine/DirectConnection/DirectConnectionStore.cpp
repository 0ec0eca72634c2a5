#include "Engine/DirectConnection/DirectConnectionStore.h"

#include <pwd.h>
#include <unistd.h>

#include <QtCore/QCborArray>
#include <QtCore/QScopeGuard>
#include <QtCore/QSysInfo>
#include <array>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionMessage.h"
#include "Engine/DirectConnection/DirectConnectionPairing.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/UserConfirmation.h"
#include "Engine/Foundation/EngineError.h"
#include "Host/QVSyncLocation.h"
#include "Host/SyncStrings.h"

using namespace DirectConnectionMessage;

namespace {

/// Maximum time without received data.
constexpr std::chrono::seconds ResponseTimeout(30);
/// The same while the server's user decides; longer than the server waits.
constexpr std::chrono::seconds PairingTimeout(150);

/// Returns the name under which this computer asks for authorization.
QString clientName() {
    std::array<char, 16384> buffer{};
    passwd entry{};
    passwd *found = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
    const QString user = found ? QString::fromUtf8(found->pw_name) : QString::number(geteuid());
    return QStringLiteral("%1 at %2").arg(user, QSysInfo::machineHostName());
}

Question questionFor(const QString &host, const QString &code) {
    return {localizedSyncString("Connect with “%1”?").arg(host),
            localizedSyncString("It shows a code. Connect only if the code is the same as here."),
            localizedSyncString("Connect"), localizedSyncString("Cancel"), code};
}

/// Messages with a secret, encoded here so that nothing else of them is in memory while the
/// response is awaited.
QByteArray greeting(const SecretBytes &secret) {
    QCborMap message = ofType(Hello);
    message[Name] = clientName();
    message[Secret] = secret.toByteArray();
    return encode(message);
}
QByteArray revelation(const DirectConnectionPairing &pairing) {
    QCborMap message = ofType(Reveal);
    message[Nonce] = pairing.clientNonce;
    message[Secret] = pairing.clientSecret.toByteArray();
    return encode(message);
}

}  // namespace

DirectConnectionStore::DirectConnectionStore(const std::shared_ptr<QVSyncLocation> &location,
                                             std::shared_ptr<StoreOperations> operations,
                                             const QString &locationIdentifier,
                                             std::shared_ptr<DirectConnectionPairings> pairings)
    : BlobStore(location, std::move(operations)),
      m_pairingKey(location->URL().absoluteString() + u' ' + locationIdentifier),
      m_pairings(std::move(pairings)) {}

Expected<void> DirectConnectionStore::open(const EngineFuture &future) {
    if (!m_turn.take(future)) {
        return failure(operationCancelled());
    }
    const auto end = qScopeGuard([this] { m_turn.release(); });
    return connectIfNeeded(future);
}

Expected<QStringList> DirectConnectionStore::listFolder(const QString &folder,
                                                        const EngineFuture &future) {
    QCborMap message = ofType(List);
    message[Folder] = folder;
    const Expected<Received> response = request(message, folder, future);
    if (!response) {
        return failure(response.error());
    }
    const QCborValue found = response->values[Names];
    const QCborArray array = found.toArray();
    const bool isList = found.isArray() && std::all_of(array.begin(), array.end(),
                                                       [](auto name) { return name.isString(); });
    if (!isList) {
        return failure(m_link.notUnderstood());
    }
    QStringList names;
    names.reserve(array.size());
    for (const QCborValue name : array) {
        names.append(name.toString());
    }
    return names;
}

Expected<QByteArray> DirectConnectionStore::readBlob(const QString &name, qint64 limit,
                                                     const EngineFuture &future) {
    QCborMap message = ofType(Read);
    message[Name] = name;
    message[SizeLimit] = limit;
    const Expected<Received> response = request(message, name, future);
    if (!response) {
        return failure(response.error());
    }
    if (!response->contents) {
        return failure(m_link.notUnderstood());
    }
    return response->contents->size() > limit ? failure(tooLong(name))
                                              : Expected<QByteArray>(*response->contents);
}

Expected<BlobStore::Written> DirectConnectionStore::writeBlob(const QString &name,
                                                              const QByteArray &contents,
                                                              const EngineFuture &future) {
    if (contents.size() > ContentsLimit) {
        return failure(refused(name));
    }
    QCborMap message = ofType(Write);
    message[Name] = name;
    message[Contents] = contents;
    const Expected<Received> response = request(message, name, future);
    if (!response) {
        return failure(response.error());
    }
    const QCborValue isNew = response->values[IsNew];
    if (!isNew.isBool()) {
        return failure(m_link.notUnderstood());
    }
    return isNew.toBool() ? Written::New : Written::AlreadyThere;
}

Expected<void> DirectConnectionStore::removeBlob(const QString &name, const EngineFuture &future) {
    QCborMap message = ofType(Remove);
    message[Name] = name;
    const Expected<Received> response = request(message, name, future);
    return response ? Expected<void>() : failure(response.error());
}

Expected<Received> DirectConnectionStore::request(const QCborMap &request, const QString &name,
                                                  const EngineFuture &future) {
    if (!m_turn.take(future)) {
        return failure(operationCancelled());
    }
    const auto end = qScopeGuard([this] { m_turn.release(); });
    Expected<Received> response = connectIfNeeded(future).and_then(
        [&] { return m_link.exchange(encode(request), Limit, {ResponseTimeout}, future); });
    if (!response) {
        return failure(future.isCancelled() ? operationCancelled() : response.error());
    }
    const QCborMap &values = response->values;
    if (values[Type] == Done) {
        return response;
    }
    if (values[Type] == Failed) {
        return failure(refusal(values, name));
    }
    m_link.disconnect();
    const Expected<void> welcome = takeWelcome(values);
    return failure(welcome ? m_link.notUnderstood() : welcome.error());
}

Expected<void> DirectConnectionStore::connectIfNeeded(const EngineFuture &future) {
    if (m_link.isConnected()) {
        return {};
    }
    if (m_pairings->fingerprint(m_pairingKey)) {
        return connect(future);
    }
    Turn &turn = m_pairings->turn(m_pairingKey);
    if (!turn.take(future)) {
        return failure(operationCancelled());
    }
    Expected<void> connected = connect(future);
    turn.release();
    return connected;
}

Expected<void> DirectConnectionStore::connect(const EngineFuture &future) {
    m_link.disconnect();
    Expected<void> connected =
        m_link.connect(URL().host(), URL().port().value_or(DirectConnection::DefaultPort), future)
            .and_then([&] { return authenticate(future); });
    if (connected) {
        return connected;
    }
    m_link.disconnect();
    return future.isCancelled() ? failure(operationCancelled()) : connected;
}

Expected<void> DirectConnectionStore::authenticate(const EngineFuture &future) {
    const std::optional<QByteArray> pinned = m_pairings->fingerprint(m_pairingKey);
    if (pinned && *pinned != m_link.serverFingerprint()) {
        return failure(
            engineError(EngineErrorCode::CertificateUntrusted,
                        "“%1” is not the computer that was paired. If this is intended, remove "
                        "the location and add it again.",
                        URL().host()));
    }
    if (!pinned) {
        return pair(future);
    }
    return m_pairings->secret(m_pairingKey, future.cancellation())
        .and_then([&](const std::optional<SecretBytes> &secret) {
            return secret ? greet(*secret, future) : pair(future);
        });
}

Expected<void> DirectConnectionStore::greet(const SecretBytes &secret, const EngineFuture &future) {
    return m_link.exchange(greeting(secret), LimitBeforeAuthorization, {ResponseTimeout}, future)
        .and_then([this](const auto &response) { return takeWelcome(response.values); });
}

Expected<void> DirectConnectionStore::pair(const EngineFuture &future) {
    DirectConnectionPairing pairing;
    pairing.serverFingerprint = m_link.serverFingerprint();
    pairing.clientName = clientName();
    pairing.clientNonce = DirectConnectionPairing::random();
    pairing.clientSecret = DirectConnectionPairing::random();
    QCborMap message = ofType(Pair);
    message[Name] = pairing.clientName;
    message[Commitment] = pairing.commitment();
    const Expected<Received> response =
        m_link.exchange(encode(message), LimitBeforeAuthorization, {ResponseTimeout}, future);
    if (!response) {
        return failure(response.error());
    }
    pairing.serverNonce = response->values[Nonce].toByteArray();
    if (pairing.serverNonce.size() != DirectConnectionPairing::RandomSize) {
        return failure(m_link.notUnderstood());
    }
    if (!m_pairings->mayAsk(m_pairingKey)) {
        return failure(notAccepted());
    }
    Expected<void> confirmed = confirm(pairing, future);
    m_pairings->didAsk(m_pairingKey, confirmed.has_value());
    return confirmed;
}

Expected<void> DirectConnectionStore::confirm(const DirectConnectionPairing &pairing,
                                              const EngineFuture &future) {
    // Both users are asked at the same time, since each has to see the other's code.
    const UserConfirmation confirmation(questionFor(URL().host(), pairing.code()));
    Expected<void> welcome =
        m_link.exchange(revelation(pairing), LimitBeforeAuthorization, {PairingTimeout}, future)
            .and_then([this](const auto &response) { return takeWelcome(response.values); });
    if (!welcome) {
        return welcome;
    }
    if (!confirmation.wait(future, PairingTimeout)) {
        return failure(notAccepted());
    }
    m_pairings->keep(m_pairingKey, pairing.serverFingerprint, pairing.clientSecret);
    return {};
}

Error DirectConnectionStore::notAccepted() const {
    return engineError(
        EngineErrorCode::AccessDenied,
        "“%1” and this computer are not paired: the question was not accepted. Synchronize "
        "again in a while, and accept it on both computers.",
        URL().host());
}

Expected<void> DirectConnectionStore::takeWelcome(const QCborMap &response) const {
    if (response[Type] == Welcome) {
        return {};
    }
    if (response[Type] == Busy) {
        return failure(engineError(EngineErrorCode::AccessDenied,
                                   "“%1” is busy with another request. Try again later.",
                                   URL().host()));
    }
    if (response[Type] == Refused) {
        return failure(engineError(
            EngineErrorCode::AccessDenied,
            "“%1” does not allow this computer to synchronize. Allow it there and try again.",
            URL().host()));
    }
    return failure(m_link.notUnderstood());
}

Error DirectConnectionStore::refusal(const QCborMap &response, const QString &name) const {
    const QString reason = response[Reason].toString();
    if (reason == BlobMissing) {
        return missing(name);
    }
    if (reason == BlobRefused) {
        return refused(name);
    }
    if (reason == NotServed) {
        return engineError(EngineErrorCode::AccessDenied,
                           "“%1” does not serve this database. Tick it there under “Direct "
                           "Connections…” in Sync Preferences, and synchronize again.",
                           URL().host());
    }
    const bool isFull = reason == StoreFull;
    return engineError(isFull ? EngineErrorCode::StoreFull : EngineErrorCode::StoreUnreachable,
                       "The computer “%1” cannot read or write its sync store. Check its disk.",
                       URL().host());
}
