#include "Engine/Stores/UnreachableStore.h"

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Localization.h"

std::optional<Error> UnreachableStore::open(const EngineFuture & /*future*/) {
    return reason();
}

Result<QStringList> UnreachableStore::listFolder(const QString & /*folder*/,
                                                 const EngineFuture & /*future*/) {
    return reason();
}

Result<QByteArray> UnreachableStore::readBlob(const QString & /*name*/, qint64 /*limit*/,
                                              const EngineFuture & /*future*/) {
    return reason();
}

Result<BlobStore::Written> UnreachableStore::writeBlob(const QString & /*name*/,
                                                       const QByteArray & /*contents*/,
                                                       const EngineFuture & /*future*/) {
    return reason();
}

std::optional<Error> UnreachableStore::removeBlob(const QString & /*name*/,
                                                  const EngineFuture & /*future*/) {
    return reason();
}

Error UnreachableStore::reason() const {
    const QString description =
        URL().isNil() ? localizedSyncString("This location has no address yet.")
                      : localizedSyncString("Locations of the kind “%1” cannot be reached yet.")
                            .arg(URL().scheme());
    return engineError(EngineErrorCode::StoreUnreachable, description);
}
