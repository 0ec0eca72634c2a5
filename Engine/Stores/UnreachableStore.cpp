#include "Engine/Stores/UnreachableStore.h"

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

Expected<void> UnreachableStore::open(const EngineFuture & /*future*/) {
    return failure(reason());
}

Expected<QStringList> UnreachableStore::listFolder(const QString & /*folder*/,
                                                   const EngineFuture & /*future*/) {
    return failure(reason());
}

Expected<QByteArray> UnreachableStore::readBlob(const QString & /*name*/, qint64 /*limit*/,
                                                const EngineFuture & /*future*/) {
    return failure(reason());
}

Expected<BlobStore::Written> UnreachableStore::writeBlob(const QString & /*name*/,
                                                         const QByteArray & /*contents*/,
                                                         const EngineFuture & /*future*/) {
    return failure(reason());
}

Expected<void> UnreachableStore::removeBlob(const QString & /*name*/,
                                            const EngineFuture & /*future*/) {
    return failure(reason());
}

Error UnreachableStore::reason() const {
    const QString description =
        URL().isNil()
            ? localizedSyncString("This location has no address. Remove it and add it again.")
            : localizedSyncString(
                  "Velmora does not support locations of the kind “%1”. Remove this location and "
                  "add another one.")
                  .arg(URL().scheme());
    return engineError(EngineErrorCode::StoreUnreachable, description);
}
