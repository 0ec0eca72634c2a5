#include "Engine/EngineError.h"

Error engineError(EngineErrorCode code, const QString &description) {
    return {EngineErrorDomain, static_cast<int>(code), description, {}};
}
