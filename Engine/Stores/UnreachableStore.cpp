#include "Engine/Stores/UnreachableStore.h"

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Localization.h"

std::optional<Error> UnreachableStore::open(const PZFuture & /*future*/) {
    return reason();
}

Result<QStringList> UnreachableStore::listFolder(const QString & /*folder*/,
                                                 const PZFuture & /*future*/) {
    return reason();
}

Result<QByteArray> UnreachableStore::readBlob(const QString & /*name*/, qint64 /*limit*/,
                                              const PZFuture & /*future*/) {
    return reason();
}

Result<BlobStore::Written> UnreachableStore::writeBlob(const QString & /*name*/,
                                                       const QByteArray & /*contents*/,
                                                       const PZFuture & /*future*/) {
    return reason();
}

std::optional<Error> UnreachableStore::removeBlob(const QString & /*name*/,
                                                  const PZFuture & /*future*/) {
    return reason();
}

Error UnreachableStore::reason() const {
    const QString description =
        URL().isNil() ? localizedSyncString("This location has no address yet.")
                      : localizedSyncString("Locations of the kind “%1” cannot be reached yet.")
                            .arg(URL().scheme());
    return engineError(EngineErrorCode::StoreUnreachable, description);
}
