#include "Engine/EngineError.h"

Error engineError(EngineErrorCode code, const QString &description, const QString &reason) {
    return {.domain = QStringLiteral("VelmoraEngine"),
            .code = static_cast<int>(code),
            .localizedDescription = description,
            .localizedFailureReason = reason};
}
