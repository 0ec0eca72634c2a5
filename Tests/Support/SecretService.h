#pragma once

#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

/// A session bus and a GNOME Keyring of the test's own, in a folder of their own. While it exists
/// the bus is this process's session bus; but for that, test programs have none, so that nothing
/// reaches the keyring of a person. What cannot be done raises std::runtime_error.
class SecretService {
public:
    /// Starts both; the keyring is unlocked and empty.
    SecretService();
    ~SecretService();
    SecretService(const SecretService &) = delete;
    SecretService &operator=(const SecretService &) = delete;

    void startBus();
    /// Kills it, as when the desktop's session ends; the keyring ends with it.
    void stopBus();
    /// With another password than at first the keyring stays locked.
    void startKeyring(const QByteArray &password = "password");
    /// Kills it, whatever it does.
    void stopKeyring();
    /// From now on the keyring reads nothing and answers nothing, until it is stopped.
    void freezeKeyring();
    /// Locks what is in it. Nobody can be asked to unlock it.
    void lock();

    /// Adds an item as another program would, also where one has the same attributes.
    void addItem(const QMap<QString, QString> &attributes, const QByteArray &secret);
    /// How many items have all of `attributes`, locked ones included.
    qsizetype count(const QMap<QString, QString> &attributes) const;

    QString busAddress() const { return m_busAddress; }

private:
    QDBusConnection bus() const;
    QDBusMessage call(const QString &path, const QString &interface, const QString &method,
                      const QVariantList &arguments) const;

    QTemporaryDir m_directory;
    QByteArray m_addressBefore;
    QString m_busAddress;
    QProcess m_bus;
    QProcess m_keyring;
};
