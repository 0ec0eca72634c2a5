#pragma once

#include "Support/PromptingSecretService.h"

/// A Secret Service that attacks its clients, or fails. Every search finds open items.
class HostileSecretService : public PromptingSecretService {
public:
    enum class Attack {
        /// Does not reply to searches.
        Silence,
        /// Finds four hundred items, of which it does not return the last one.
        ManyItems,
        /// Finds more items than are read.
        TooManyItems,
        /// Each of ten secrets is huge.
        GiantSecrets,
        /// Each of ten items has a huge attribute.
        GiantAttributes,
        /// Replies to searches with values of another type.
        TypesOfSearches,
        /// The properties of the items have other types.
        TypesOfProperties,
        /// Replies to requests for secrets with values of another type.
        TypesOfSecrets,
        /// Leaves the bus when it is asked for the secrets.
        Disappearance
    };

    HostileSecretService(const QString &busAddress, Attack attack);
    ~HostileSecretService() override;

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QVariantList items() const;
    QVariantList properties() const;
    QVariantList secrets(const QDBusMessage &message) const;

    const Attack m_attack;
};
