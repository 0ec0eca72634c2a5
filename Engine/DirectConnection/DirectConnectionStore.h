#pragma once

#include <mutex>

#include "Engine/DirectConnection/DirectConnectionLink.h"
#include "Engine/Stores/BlobStore.h"

struct DirectConnectionPairing;
class EngineSyncLocation;

/// The store that another computer's server serves. The first connection of a location pairs the
/// two computers: both persons compare a code, and the server's certificate is pinned, so that
/// later connections are refused where another one is presented. Connects when it is needed, and
/// again where the server has ended an idle connection; letting the store go disconnects.
class DirectConnectionStore : public BlobStore {
public:
    explicit DirectConnectionStore(const std::shared_ptr<EngineSyncLocation> &location);

    std::optional<Error> open(const PZFuture &future) override;

protected:
    Result<QStringList> listFolder(const QString &folder, const PZFuture &future) override;
    Result<QByteArray> readBlob(const QString &name, qint64 limit, const PZFuture &future) override;
    Result<Written> writeBlob(const QString &name, const QByteArray &contents,
                              const PZFuture &future) override;
    std::optional<Error> removeBlob(const QString &name, const PZFuture &future) override;

private:
    /// Sends `request` over a connection that is there or made, and takes the answer "done".
    Result<QCborMap> request(const QCborMap &request, const QString &name, const PZFuture &future);
    std::optional<Error> connect(const PZFuture &future);
    std::optional<Error> greet(const QByteArray &secret, const PZFuture &future);
    std::optional<Error> pair(const PZFuture &future);
    std::optional<Error> confirm(const DirectConnectionPairing &pairing, const PZFuture &future);
    std::optional<Error> takeWelcome(const QCborMap &answer) const;
    Error notUnderstood() const;
    Error failure(const QCborMap &answer, const QString &name) const;

    /// Under which the pairing is kept.
    const QString m_pairingKey;
    std::mutex m_mutex;
    DirectConnectionLink m_link;
};
