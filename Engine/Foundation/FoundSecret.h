#pragma once

#include <optional>

#include "Engine/Foundation/EngineError.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/SecretStore.h"

/// Returns the error for a secret that could not be read because of `reading`, an error of
/// SecretStore: operationCancelled() if it was cancelled, otherwise one of the code AccessDenied,
/// whose message contains the description and the reason of `reading`, and asks the user to unlock
/// the keyring. Thread-safe.
Error secretUnreadable(const Error &reading);

/// Returns the result of a lookup in the secret store as the engine handles it: without a password
/// service there are no stored secrets, so the result is empty; any other failure, such as a
/// keyring that stays locked, is an error for the user and must not be taken for an empty result,
/// which would make the engine ask for or replace a secret that exists. A cancelled lookup is the
/// error operationCancelled(). Thread-safe.
template <class Value>
Expected<std::optional<Value>> foundSecret(const Expected<std::optional<Value>> &lookup) {
    if (lookup) {
        return lookup;
    }
    return SecretStore::isServiceMissing(lookup.error())
               ? Expected<std::optional<Value>>(std::nullopt)
               : failure(secretUnreadable(lookup.error()));
}
