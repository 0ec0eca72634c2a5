#pragma once

#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/Foundation/Turn.h"
#include "Engine/Stores/BlobStore.h"
#include "Platform/Security/SecretBytes.h"

class DirectConnectionPairings;
struct DirectConnectionPairing;

/// The store that another computer's server serves. The first connection of a location pairs the
/// two computers: the users of both compare a code, and the server's certificate is pinned, so
/// later connections are refused if another one is presented. It connects when needed, and again if
/// the server has closed an idle connection; it disconnects when it is destroyed. Requests of
/// several threads are sent one after the other. Cancelling a request takes effect at once, also
/// while it waits for its turn.
///
/// A request may take 30 seconds without received data, and ten minutes in all. Contents are
/// limited by DirectConnectionMessage::ContentsLimit; longer ones are refused.
class DirectConnectionStore : public BlobStore {
public:
    /// A pairing is stored for `locationIdentifier` together with the URL of `location`. `pairings`
    /// must not be null. Does not connect yet.
    DirectConnectionStore(const std::shared_ptr<QVSyncLocation> &location,
                          std::shared_ptr<StoreOperations> operations,
                          const QString &locationIdentifier,
                          std::shared_ptr<DirectConnectionPairings> pairings);

    /// Connects. May ask the user to compare the pairing code, and then blocks for up to five
    /// minutes. Fails with the code AccessDenied if the other computer refuses or is busy, or if
    /// its question was not accepted a short time ago; with CertificateUntrusted if it is another
    /// computer than the paired one; and with StoreUnreachable.
    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    /// Sends `request`, connecting if necessary, and returns the response if it is "done". `name`
    /// is used in error messages.
    Expected<DirectConnectionMessage::Received> request(const QCborMap &request,
                                                        const QString &name,
                                                        const EngineFuture &future);
    /// Connects, checks the pinned certificate, and greets or pairs.
    Expected<void> connect(const EngineFuture &future);
    Expected<void> connectIfNeeded(const EngineFuture &future);
    /// Steps of connecting.
    Expected<void> authenticate(const EngineFuture &future);
    Expected<void> greet(const SecretBytes &secret, const EngineFuture &future);
    Expected<void> pair(const EngineFuture &future);
    /// Exchanges the nonces and asks the users, unless this computer's user was asked a short time
    /// ago.
    Expected<void> confirm(const DirectConnectionPairing &pairing, const EngineFuture &future);
    /// Returns the error of a pairing that the user of this computer has not confirmed.
    Error notAccepted() const;
    /// Returns an error unless `response` is "welcome".
    Expected<void> takeWelcome(const QCborMap &response) const;
    /// Returns the error for a "failed" response.
    Error refusal(const QCborMap &response, const QString &name) const;

    /// Key of the pairing in `m_pairings`.
    const QString m_pairingKey;
    const std::shared_ptr<DirectConnectionPairings> m_pairings;
    /// For the connection.
    Turn m_turn;
    DirectConnectionLink m_link;
};
