#pragma once

#include <QtCore/QThread>
#include <QtDBus/QDBusVirtualObject>
#include <atomic>

/// A Secret Service that does nothing without a prompt. Whatever is looked for, it has one item:
/// locked, unless its name (the attribute "name") is "open". It runs on a thread of its own, on a
/// bus where there is no other.
class PromptingSecretService : public QDBusVirtualObject {
public:
    enum class Person {
        /// Dismisses every prompt.
        Declines,
        /// Leaves every prompt open, also when the program takes it back.
        LooksAway
    };

    PromptingSecretService(const QString &busAddress, Person person);
    ~PromptingSecretService() override;

    /// How many prompts the person has seen.
    int countOfPrompts() const { return m_countOfPrompts; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString &path) const override;

private:
    void registerOnBus();
    QVariantList answer(const QDBusMessage &message);

    const QString m_busAddress;
    const Person m_person;
    std::atomic_int m_countOfPrompts = 0;
    QThread m_thread;
};
