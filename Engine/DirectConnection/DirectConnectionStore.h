#pragma once

#include <mutex>

#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/Stores/BlobStore.h"

class DirectConnectionPairings;
struct DirectConnectionPairing;

/// The store that another computer's server serves. The first connection of a location pairs the
/// two computers: both persons compare a code, and the server's certificate is pinned, so that
/// later connections are refused where another one is presented. Connects when it is needed, and
/// again where the server has ended an idle connection; letting the store go disconnects.
class DirectConnectionStore : public BlobStore {
public:
    /// `locationIdentifier`: what the pairing is kept for, together with the URL of `location`.
    /// `pairings` must not be null.
    DirectConnectionStore(const std::shared_ptr<QVSyncLocation> &location,
                          const QString &locationIdentifier,
                          std::shared_ptr<DirectConnectionPairings> pairings);

    Expected<void> open(const EngineFuture &future) override;

protected:
    Expected<QStringList> listFolder(const QString &folder, const EngineFuture &future) override;
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override;
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override;
    Expected<void> removeBlob(const QString &name, const EngineFuture &future) override;

private:
    /// Sends `request` over a connection that is there or made, and takes the answer "done".
    Expected<QCborMap> request(const QCborMap &request, const QString &name,
                               const EngineFuture &future);
    std::optional<Error> connect(const EngineFuture &future);
    std::optional<Error> greet(const QByteArray &secret, const EngineFuture &future);
    std::optional<Error> pair(const EngineFuture &future);
    std::optional<Error> confirm(const DirectConnectionPairing &pairing,
                                 const EngineFuture &future);
    std::optional<Error> takeWelcome(const QCborMap &answer) const;
    Error notUnderstood() const;
    Error refusal(const QCborMap &answer, const QString &name) const;

    /// Under which the pairing is kept.
    const QString m_pairingKey;
    const std::shared_ptr<DirectConnectionPairings> m_pairings;
    std::mutex m_mutex;
    DirectConnectionLink m_link;
};
