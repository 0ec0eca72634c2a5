#include "Engine/Foundation/EngineError.h"

#include "Host/SyncStrings.h"

Error engineError(EngineErrorCode code, const QString &description) {
    return {EngineErrorDomain, static_cast<int>(code), description, {}};
}

Error engineError(EngineErrorCode code, const char *text, const QString &place) {
    return engineError(code, localizedSyncString(text).arg(place));
}

bool isEngineError(const Error &error, EngineErrorCode code) {
    return error.domain == EngineErrorDomain && error.code == static_cast<int>(code);
}

Error damagedRecord(const QString &place) {
    return engineError(EngineErrorCode::DamagedRecord,
                       "The record “%1” is damaged. Synchronize the other computers that use this "
                       "location, because one of them may write it again.",
                       place);
}

Error foreignFile(const QString &place) {
    return engineError(EngineErrorCode::DamagedRecord,
                       "“%1” is not used, because records have other names. Move it to another "
                       "folder, or remove it if you do not need it.",
                       place);
}

Error invalidBlobName(const QString &name) {
    return engineError(EngineErrorCode::BlobRefused,
                       "“%1” is not a valid name in a sync store. Install the newest version of "
                       "Velmora on all your computers.",
                       name);
}

Error notSyncStore(const QString &place) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "“%1” is not a sync store. Edit the location and choose another one.",
                       place);
}

Error storeNotCreated(EngineErrorCode code, const QString &path) {
    return engineError(code,
                       "The sync store “%1” could not be created. Check the permissions of the "
                       "folder that contains it.",
                       path);
}

Error newerRecord(const QString &place) {
    return engineError(
        EngineErrorCode::UnknownVersion,
        "The record “%1” was created by a newer version of Velmora. Update Velmora to read it.",
        place);
}

Error serverNotFound(const QString &name) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The server “%1” was not found. Check its name and the network connection.",
                       name);
}

Error operationCancelled() {
    return engineError(EngineErrorCode::Cancelled,
                       localizedSyncString("The operation was cancelled."));
}

Error tookTooLong(const QString &place) {
    return engineError(
        EngineErrorCode::StoreUnreachable,
        "“%1” takes too long to respond. Check whether it is available, and try again.", place);
}
