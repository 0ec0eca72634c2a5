#pragma once

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Expected.h"

/// The text for the user if `result` is an error; otherwise empty.
template <class Value>
QString description(const Expected<Value> &result) {
    return result ? QString() : result.error().localizedDescription;
}

inline QString description(const std::optional<Error> &error) {
    return error ? error->localizedDescription : QString();
}

/// The engine's code if `result` is an error; otherwise EngineErrorCode().
template <class Value>
EngineErrorCode code(const Expected<Value> &result) {
    return result ? EngineErrorCode() : static_cast<EngineErrorCode>(result.error().code);
}

inline EngineErrorCode code(const std::optional<Error> &error) {
    return error ? static_cast<EngineErrorCode>(error->code) : EngineErrorCode();
}
