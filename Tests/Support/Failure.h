#pragma once

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/Result.h"

/// The text for the user if `result` is an error; otherwise empty.
template <class Value>
QString description(const Expected<Value> &result) {
    return result ? QString() : result.error().localizedDescription;
}

template <class Value>
QString description(const Result<Value> &result) {
    const Error *error = errorOf(result);
    return error ? error->localizedDescription : QString();
}

inline QString description(const std::optional<Error> &error) {
    return error ? error->localizedDescription : QString();
}

/// The engine's code if `result` is an error; otherwise EngineErrorCode().
template <class Value>
EngineErrorCode code(const Expected<Value> &result) {
    return result ? EngineErrorCode() : static_cast<EngineErrorCode>(result.error().code);
}

template <class Value>
EngineErrorCode code(const Result<Value> &result) {
    const Error *error = errorOf(result);
    return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
}

inline EngineErrorCode code(const std::optional<Error> &error) {
    return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
}
