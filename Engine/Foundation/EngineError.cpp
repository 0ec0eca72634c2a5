#include "Engine/Foundation/EngineError.h"

#include "Platform/Foundation/Localization.h"

Error engineError(EngineErrorCode code, const QString &description) {
    return {EngineErrorDomain, static_cast<int>(code), description, {}};
}

Error engineError(EngineErrorCode code, const char *text, const QString &place) {
    return engineError(code, localizedSyncString(text).arg(place));
}

Error operationCancelled() {
    return engineError(EngineErrorCode::Cancelled,
                       localizedSyncString("The operation was cancelled."));
}
