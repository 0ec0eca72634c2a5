#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"
#include "Platform/Security/StoredSecret.h"

/// Posted to the default notification center on the main thread when a secret that should be stored
/// permanently cannot be: once for each store, however many secrets follow. It has no object; the
/// store's error() returns the reason.
inline const QString SecretsNotKeptNotification = QStringLiteral("SecretsNotKeptNotification");

/// Posted to the default notification center on the main thread each time that the service could
/// not delete a secret. It has no object; the store's removalError() returns the reason. Not posted
/// if there is no service.
inline const QString SecretNotRemovedNotification = QStringLiteral("SecretNotRemovedNotification");

/// The user's secrets in the desktop's Secret Service, together with those set in this run that the
/// service has not stored, or not yet. Thread-safe. No call blocks longer than the store's timeout
/// (`timeout`), whatever the service does, unless stated otherwise. Error texts and logs never
/// contain a secret.
class PLATFORM_EXPORT SecretStore {
public:
    /// Returns the store of the process. There is one, because the user's session has one Secret
    /// Service, and all code must find the secrets of this run that the service does not have. When
    /// the application object is destroyed, pending writes have 1.2 seconds to complete; afterwards
    /// only the secrets in memory are available.
    static SecretStore &shared();

    /// `timeout` is the timeout of each blocking call.
    explicit SecretStore(std::chrono::milliseconds timeout = std::chrono::seconds(3));
    /// Waits for pending writes, at most for the store's timeout or 1.2 seconds, then cancels them,
    /// which takes at most another 0.3 seconds.
    ~SecretStore();
    SecretStore(const SecretStore &) = delete;
    SecretStore &operator=(const SecretStore &) = delete;

    /// Returns the items that have all of `attributes`, where those set in this run replace the
    /// service's. Locked items are unlocked first, for which the user may be prompted, but not
    /// again once the user has declined. Unless this run has set some of the items, returns an
    /// error if items stay locked or the service fails. Blocks for at most the store's timeout;
    /// after one call has timed out, others do not block while that request is pending.
    Expected<QList<StoredSecret>> find(const SecretAttributes &attributes);
    /// Finds the same, but once `cancellation` is requested, on any thread or before the call,
    /// returns at once, with an error for which isCancelled() returns true unless this run has set
    /// some of the items. While the service has not replied to a cancelled call, no other call of
    /// find() prompts the user: the prompt of that call may still be open.
    Expected<QList<StoredSecret>> find(const SecretAttributes &attributes,
                                       const std::stop_token &cancellation);
    /// Returns the attributes of the items that have all of `attributes`, including locked ones.
    /// Requests no secret and never asks the user to unlock anything. Unless this run has set some
    /// of the items, returns an error if the service fails.
    Expected<QList<SecretAttributes>> findAttributes(const SecretAttributes &attributes);

    /// Receives the items, or the reason why they cannot be read.
    using Handler = std::function<void(const Expected<QList<StoredSecret>> &items)>;
    /// Receives the attributes of items, or the reason why they cannot be looked up.
    using AttributesHandler =
        std::function<void(const Expected<QList<SecretAttributes>> &attributes)>;
    /// Finds what find() finds, but returns at once and waits for the service without a timeout,
    /// for example until the user has unlocked the keyring. The handler is called exactly once,
    /// from the event loop of the main thread, or never if the application ends before. Unless this
    /// run has set some of the items, it receives an error if items stay locked or the service
    /// fails.
    void findLater(const SecretAttributes &attributes, const Handler &handler);
    /// Finds what findAttributes() finds, as findLater() does.
    void findAttributesLater(const SecretAttributes &attributes, const AttributesHandler &handler);

    /// Stores `item`, replacing the item with the same attributes. Returns at once; later calls of
    /// find() see it immediately.
    void set(const StoredSecret &item);
    /// Receives whether an item was deleted: false if there is none, which the service has
    /// confirmed. An error if that is not known or the item could not be deleted.
    using RemovalHandler = std::function<void(const Expected<bool> &isRemoved)>;
    /// Deletes the first item that has all of `attributes`. Returns at once and waits for the
    /// service as long as it takes. `handler` is called as that of findLater().
    void removeFirstLater(const SecretAttributes &attributes, const RemovalHandler &handler);

    /// Returns whether `error`, which a lookup has returned, means that no password service is
    /// running on this computer.
    static bool isServiceMissing(const Error &error);
    /// Returns whether `error`, which a lookup has returned, means that it was cancelled, or that
    /// the application is ending.
    static bool isCancelled(const Error &error);

    /// Returns why secrets cannot be stored permanently, as a message for the user: the first
    /// failure of this store. Empty if none has happened.
    std::optional<Error> error() const;
    /// Returns why the last secret could not be deleted, as a message for the user; empty if that
    /// has not happened.
    std::optional<Error> removalError() const;
    /// Blocks until all pending writes have completed, or for the store's timeout. Returns whether
    /// all permanent secrets were stored.
    bool finishWriting();

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};
