#pragma once

#include <optional>

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretStore.h"

/// Returns the error, of the code AccessDenied, for a secret that could not be read because of
/// `reading`, an error of SecretStore. Thread-safe.
Error secretUnreadable(const Error &reading);

/// Returns the result of a lookup in the secret store as the engine handles it: without a password
/// service there are no stored secrets; any other failure is an error for the user. Thread-safe.
template <class Value>
Expected<std::optional<Value>> foundSecret(const Expected<std::optional<Value>> &lookup) {
    if (lookup) {
        return lookup;
    }
    return SecretStore::isServiceMissing(lookup.error())
               ? Expected<std::optional<Value>>(std::nullopt)
               : failure(secretUnreadable(lookup.error()));
}
