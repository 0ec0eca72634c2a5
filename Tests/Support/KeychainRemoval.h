#pragma once

#include <QtTest/QTest>
#include <memory>

#include "Platform/Security/Keychain.h"
#include "Platform/Security/SecretStore.h"

/// Deletions from the password service that a test waits for, while the event loop runs. Each
/// returns whether an item was deleted; false also if that fails.
namespace KeychainRemoval {

template <class Begin>
bool await(const Begin &begin) {
    const auto result = std::make_shared<std::optional<bool>>();
    begin([result](const Expected<bool> &isRemoved) { *result = isRemoved.value_or(false); });
    constexpr int patience = 30000;
    return QTest::qWaitFor([&] { return result->has_value(); }, patience) && **result;
}

/// Deletes the first item of `service` and `account`.
inline bool removeFirst(Keychain &keychain, const QByteArray &service, const QByteArray &account) {
    return await([&](const Keychain::RemovalHandler &handler) {
        keychain.removeFirstLater(service, account, handler);
    });
}

/// Deletes the first item that has all of `attributes`.
inline bool removeFirst(SecretStore &store, const SecretAttributes &attributes) {
    return await([&](const SecretStore::RemovalHandler &handler) {
        store.removeFirstLater(attributes, handler);
    });
}

}  // namespace KeychainRemoval
