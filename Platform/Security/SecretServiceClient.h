#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Platform/Security/SecretStore.h"

// GLib's own name.
struct _GCancellable;  // NOLINT(*-reserved-identifier, cert-dcl*)

/// Asks the Secret Service of the session bus, without ever waiting. Every question opens
/// the service anew, and lets go of the bus, so that none depends on what became of either since
/// the one before. All on one thread, whose default GLib context the answers come back on.
class SecretServiceClient {
public:
    enum class Failure {
        /// No session bus, or no service on it.
        NoService,
        /// Locked, and the person has not unlocked it.
        Locked,
        /// Anything else: the service has died, does not answer, or answers nonsense.
        Broken,
        /// `cancel` was called.
        Cancelled
    };
    enum class Access {
        /// All items, locked ones too, without their secrets.
        Attributes,
        /// The items that are not locked.
        UnlockedSecrets,
        /// All items; the user is asked to unlock them, and those that stay locked are left out.
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

    /// Each handler is called once.
    void find(const SecretAttributes &attributes, Access access,
              const std::function<void(const FoundItems &)> &handler);
    /// Replaces the item of the same attributes in the default collection.
    void store(const StoredSecret &item,
               const std::function<void(std::optional<Failure>)> &handler);
    /// Deletes the first item that has all of `attributes`; false where there is none.
    void removeFirst(const SecretAttributes &attributes,
                     const std::function<void(bool isRemoved)> &handler);
    /// Ends what is under way as soon as the service lets it, and every later question at once.
    void cancel();

private:
    std::shared_ptr<_GCancellable> m_cancellable;
};
