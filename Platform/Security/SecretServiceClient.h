#pragma once

#include <QtCore/QList>
#include <functional>
#include <memory>
#include <optional>

#include "Platform/Foundation/Expected.h"
#include "Platform/Security/StoredSecret.h"

// GLib's own name.
struct _GCancellable;  // NOLINT(*-reserved-identifier, cert-dcl*)

/// Asynchronous client of the Secret Service on the session bus; it never blocks. Every request
/// opens the service anew and releases the bus connection, so that it does not depend on the state
/// left by earlier requests. Must be used on one thread; handlers are called on the default GLib
/// context of that thread.
class SecretServiceClient {
public:
    /// Why a request failed.
    enum class Failure {
        /// No session bus, or no service on it.
        NoService,
        /// The item or collection is locked and the user has not unlocked it.
        Locked,
        /// Any other failure: the service has crashed, does not reply, or replies with invalid
        /// data.
        Broken,
        /// cancel() was called.
        Cancelled
    };
    /// What is read of the items.
    enum class Access {
        /// All items, including locked ones, without their secrets.
        Attributes,
        /// The items that are not locked.
        UnlockedSecrets,
        /// All items; the user is asked to unlock them, and those that stay locked are omitted.
        Secrets
    };

    struct FoundItems {
        std::optional<Failure> failure = {};
        QList<StoredSecret> items = {};
        /// Whether items were left out because they are locked.
        bool isAnyLocked = false;
    };

    SecretServiceClient();
    ~SecretServiceClient();
    SecretServiceClient(const SecretServiceClient &) = delete;
    SecretServiceClient &operator=(const SecretServiceClient &) = delete;

    /// Finds all items that have all of `attributes`. Fails if there are more than 500, or if a
    /// secret, or the attributes of an item, are longer than 64 KiB. As for all requests, the
    /// handler is called exactly once.
    void find(const SecretAttributes &attributes, Access access,
              const std::function<void(const FoundItems &)> &handler);
    /// Stores `item` in the default collection, replacing the item with the same attributes.
    void store(const StoredSecret &item,
               const std::function<void(std::optional<Failure>)> &handler);
    /// Deletes the first item that has all of `attributes`. The user is asked to unlock it. The
    /// handler receives whether an item was deleted: false if there is none.
    void removeFirst(const SecretAttributes &attributes,
                     const std::function<void(const tl::expected<bool, Failure> &)> &handler);
    /// Cancels the requests that are running, as soon as the service allows it, and all later
    /// requests immediately.
    void cancel();

private:
    std::shared_ptr<_GCancellable> m_cancellable;
};
