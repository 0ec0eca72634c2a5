#pragma once

#include <QtCore/QThread>
#include <QtDBus/QDBusVirtualObject>
#include <atomic>
#include <functional>
#include <mutex>

#include "Platform/Foundation/CallQueue.h"

/// A Secret Service that requires a prompt for everything. Every search finds one item, which is
/// locked unless its attribute "name" is "open". Runs on its own thread, on a bus without another
/// Secret Service.
class PromptingSecretService : public QDBusVirtualObject {
public:
    enum class Person {
        /// Dismisses every prompt.
        Declines,
        /// Leaves every prompt open, even if the program cancels it.
        LooksAway
    };

    PromptingSecretService(const QString &busAddress, Person person);
    ~PromptingSecretService() override;

    /// The encryption that the first session was asked for with.
    QString firstAlgorithm() const;
    /// The number of prompts shown so far.
    int countOfPrompts() const { return m_countOfPrompts; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString &path) const override;

private:
    /// Calls `call` on the thread of this object and waits until it has returned.
    void callOnThread(const std::function<void()> &call);
    void registerOnBus();
    QVariantList answer(const QDBusMessage &message);

    const QString m_busAddress;
    const Person m_person;
    std::atomic_int m_countOfPrompts = 0;
    mutable std::mutex m_mutex;
    QString m_firstAlgorithm;
    QThread m_thread;
    CallQueue m_calls{this};
};
