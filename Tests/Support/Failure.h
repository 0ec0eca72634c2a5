#pragma once

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Result.h"

/// What the user is told of a failed operation; empty if it succeeded.
template <class Value>
QString description(const Result<Value> &result) {
    const Error *error = errorOf(result);
    return error ? error->localizedDescription : QString();
}

inline QString description(const std::optional<Error> &error) {
    return error ? error->localizedDescription : QString();
}

/// The engine's code of a failed operation; EngineErrorCode() if it succeeded.
template <class Value>
EngineErrorCode code(const Result<Value> &result) {
    const Error *error = errorOf(result);
    return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
}

inline EngineErrorCode code(const std::optional<Error> &error) {
    return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
}
