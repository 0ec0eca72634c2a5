#include "Engine/Foundation/FoundSecret.h"

#include "Host/SyncStrings.h"

Error secretUnreadable(const Error &reading) {
    if (SecretStore::isCancelled(reading)) {
        return operationCancelled();
    }
    return engineError(EngineErrorCode::AccessDenied,
                       localizedSyncString("%1 %2 Unlock the keyring and try again.")
                           .arg(reading.localizedDescription, reading.localizedFailureReason));
}
