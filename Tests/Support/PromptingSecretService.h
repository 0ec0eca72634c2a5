#pragma once

#include <atomic>
#include <mutex>

#include "Support/BusService.h"

/// A Secret Service that requires a prompt for everything. Every search finds one item, which is
/// locked unless its attribute "name" is "open".
class PromptingSecretService : public BusService {
public:
    enum class User {
        /// Dismisses every prompt.
        Declines,
        /// Leaves every prompt open, even if the program cancels it.
        LooksAway
    };

    PromptingSecretService(const QString &busAddress, User user);
    ~PromptingSecretService() override;

    /// The encryption that the first session was asked for with.
    QString firstAlgorithm() const;
    /// The number of prompts shown so far.
    int countOfPrompts() const { return m_countOfPrompts; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QVariantList answer(const QDBusMessage &message);

    const User m_user;
    std::atomic_int m_countOfPrompts = 0;
    mutable std::mutex m_mutex;
    QString m_firstAlgorithm;
};
