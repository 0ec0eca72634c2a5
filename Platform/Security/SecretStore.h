#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// Posted to the default notification centre on the main thread when a secret that should have been
/// kept for good cannot be: once for each store, however many secrets follow. Object: none; the
/// store's `error()` says why.
inline const QString SecretsNotKeptNotification = QStringLiteral("SecretsNotKeptNotification");

/// What an item is found by: names and values in UTF-8. They are no secret.
using SecretAttributes = std::map<QByteArray, QByteArray>;

enum class SecretKeeping { ThisRun, ForGood };

/// A secret and what it is found by. A value.
struct StoredSecret {
    SecretAttributes attributes = {};
    /// How the person sees it named in the desktop's password manager.
    QString label = {};
    QByteArray secret = {};
    SecretKeeping keeping = SecretKeeping::ForGood;
};

/// The user's secrets in the desktop's Secret Service, and those of this run that the service has
/// not taken, or not yet. Any thread; nothing here waits longer than the store's patience, whatever
/// the service does, unless stated otherwise. Error texts and logs never hold a secret.
class PLATFORM_EXPORT SecretStore {
public:
    /// The store of the process. When the application object goes, what is still to be written gets
    /// the store's patience to arrive; from then on there is only what is in memory.
    static SecretStore &shared();

    explicit SecretStore(std::chrono::milliseconds patience = std::chrono::seconds(3));
    /// As when the application object goes.
    ~SecretStore();
    SecretStore(const SecretStore &) = delete;
    SecretStore &operator=(const SecretStore &) = delete;

    /// The items that have all of `attributes`; with those set in this run in place of the
    /// service's. Items that are locked are unlocked first, for which the person may be asked; once
    /// they have declined, locked items are left out. Empty optional where the service cannot be
    /// asked and this run has set none of them. After one call has waited in vain, others do not
    /// wait while that question is still open.
    std::optional<QList<StoredSecret>> find(const SecretAttributes &attributes);
    /// Returns the attributes of the items that have all of `attributes`, also of locked ones. No
    /// secret is requested and the user is never asked to unlock anything. Empty optional if the
    /// service cannot be asked and this run has set none of them.
    std::optional<QList<SecretAttributes>> findAttributes(const SecretAttributes &attributes);

    /// Receives the items, or the reason why they cannot be read.
    using Handler = std::function<void(const Expected<QList<StoredSecret>> &items)>;
    using AttributesHandler =
        std::function<void(const Expected<QList<SecretAttributes>> &attributes)>;
    /// Finds what `find` and `findAttributes` find, but returns at once and waits for the service
    /// as long as it takes, such as until the user has unlocked the keyring. The handler is called
    /// exactly once, from the event loop of the main thread, or never if the application ends
    /// before. Unless this run has set some of the items, it receives an error if items stay locked
    /// or the service fails.
    void findLater(const SecretAttributes &attributes, const Handler &handler);
    void findAttributesLater(const SecretAttributes &attributes, const AttributesHandler &handler);

    /// Replaces the item of the same attributes. Returns at once.
    void set(const StoredSecret &item);
    /// Deletes the first item that has all of `attributes`, and tells whether that was done.
    bool removeFirst(const SecretAttributes &attributes);

    /// Why secrets are not kept for good, for the person; empty as long as they are.
    std::optional<Error> error() const;
    /// Waits until nothing is left to be written, or the patience is over. Tells whether all that
    /// was set for good has been kept.
    bool finishWriting();

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};
