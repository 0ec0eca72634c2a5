#pragma once

#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusMessage>

#include "Support/PrivateBus.h"

/// A private session bus with a private GNOME Keyring, in a temporary folder. While it exists, the
/// bus is this process's session bus. Otherwise test programs have none, so that they cannot reach
/// the user's own keyring. Failures throw std::runtime_error.
class SecretService {
public:
    /// Starts both. The keyring is unlocked and empty.
    SecretService();
    ~SecretService();
    SecretService(const SecretService &) = delete;
    SecretService &operator=(const SecretService &) = delete;

    void startBus();
    /// Kills the bus, as the end of a desktop session does. The keyring ends with it.
    void stopBus();
    /// Starts the keyring. With another password than the first time it stays locked.
    void startKeyring(const QByteArray &password = "password");
    /// Kills the keyring.
    void stopKeyring();
    /// Suspends the keyring until it is stopped.
    void freezeKeyring();
    /// Locks the keyring. No prompt can unlock it.
    void lock();

    /// Adds an item as another program would, even if one with the same attributes exists.
    void addItem(const QMap<QString, QString> &attributes, const QByteArray &secret);
    /// Returns the number of items with all of `attributes`, including locked ones.
    qsizetype count(const QMap<QString, QString> &attributes) const;

    QString busAddress() const { return m_bus.address(); }

private:
    QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments) const;

    QTemporaryDir m_directory;
    QByteArray m_addressBefore;
    PrivateBus m_bus;
    QProcess m_keyring;
};
