#pragma once

#include <QtCore/QStringList>
#include <memory>

#include "Host/QVDirectConnectionServer.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Interface/WindowController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SortDescriptor.h"

/// The settings of the built-in server, in a sheet: whether it is enabled, its port, and which
/// clients may connect. Each change is applied to the server and written to the user defaults
/// immediately. The clients are read from the keychain once, asynchronously, after the controller
/// is created. Must be used on the main thread. A value that cannot be written to the user defaults
/// is presented as an error, but applied to the server all the same.
class QVServerPreferencesController : public WindowController {
    Q_OBJECT
    /// The host's server, not owned; null if the host has none. The settings are then only stored.
    Q_PROPERTY(QVDirectConnectionServer *server READ server CONSTANT)
    /// The server's port; 0 without a server. Setting 0 selects the default port.
    Q_PROPERTY(quint16 serverPort READ serverPort WRITE setServerPort NOTIFY serverPortChanged)
    /// Whether the server is serving. Setting it to true announces the key also if the server could
    /// not be started, in which case it is still false.
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    /// The names of the authorized clients, without duplicates, in the order of the keychain.
    Q_PROPERTY(QStringList authorizedClients READ authorizedClients NOTIFY authorizedClientsChanged)
    /// Sorts the clients by name.
    Q_PROPERTY(QList<SortDescriptor> authorizedClientsSortDescriptors READ
                   authorizedClientsSortDescriptors CONSTANT)
    /// Whether the keychain contains no client; false until it has been read.
    Q_PROPERTY(bool hasNoClients READ hasNoClients NOTIFY hasNoClientsChanged)
    /// Why the clients are not listed, or the last one was not revoked, and what to do next, for
    /// the user; empty unless the keychain could not be read, or had no service when that client
    /// was to be revoked.
    Q_PROPERTY(QString clientsProblem READ clientsProblem NOTIFY clientsProblemChanged)
    /// Whether there is such a problem.
    Q_PROPERTY(bool hasClientsProblem READ hasClientsProblem NOTIFY hasClientsProblemChanged)
public:
    /// Returns a new controller, which starts to read the keychain without blocking. Never null. It
    /// may be destroyed at any time except while its sheet is shown; results that arrive later are
    /// ignored.
    static std::unique_ptr<QVServerPreferencesController> controller();

    QVDirectConnectionServer *server() const;
    /// Read from the server at each call, so it is the port in use even if another object has set
    /// it.
    quint16 serverPort() const;
    /// Stores the port in the defaults and restarts the server if it is serving. Blocks while it
    /// restarts. If the server cannot listen on the new port, it stops and the host presents the
    /// error; therefore this announces `enabled` too.
    void setServerPort(quint16 port);
    bool isEnabled() const;
    /// Stores the setting in the defaults and starts or stops the server. Blocks until the server
    /// has ended its connections. If the server is in that state already, it only stores and
    /// announces.
    void setEnabled(bool enabled);
    /// Announced when the keychain was read, also if that has failed.
    QStringList authorizedClients() const { return m_authorizedClients; }
    /// Also false if the keychain cannot be read; the list is then empty.
    bool hasNoClients() const { return m_knowsClients && m_authorizedClients.isEmpty(); }
    QString clientsProblem() const { return m_clientsProblem; }
    bool hasClientsProblem() const { return !m_clientsProblem.isEmpty(); }
    QList<SortDescriptor> authorizedClientsSortDescriptors() const;
    /// Adds a name to the list only; authorizes no client. Has no effect if it is in the list, but
    /// announces it.
    void addAuthorizedClientsObject(const QString &client);

    /// Shows the sheet on the window of `parentWindow`, running a nested event loop, and returns
    /// when it has closed. Not reentrant; the controller must not be destroyed meanwhile. Raises an
    /// AssertionFailure if `parentWindow` is null.
    void runServerPreferencesModalForWindow(QWidget *parentWindow);

    /// Dependency of the derived key, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingServerPort() {
        return {"server.serving"};
    }

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasNoClients() {
        return {"authorizedClients"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingClientsProblem() {
        return {"authorizedClients"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasClientsProblem() {
        return {"authorizedClients"};
    }

public Q_SLOTS:
    /// Revokes a client by deleting its keychain item; a connected client is refused at its next
    /// request. Returns at once: the client stays in the list until the item is deleted, and also
    /// if it cannot be deleted. Has no effect while the client is being revoked. A failure is not
    /// presented: SecretStore posts it or, if there is no service, it becomes the clientsProblem.
    /// If several items have the same name, one is deleted for each call.
    void removeAuthorizedClientsObject(const QString &client);
    /// Closes the sheet. Has no effect if it is not shown.
    void acceptModalSheet(QObject *sender);

Q_SIGNALS:
    /// Emitted each time the value is set, even if it stays equal; the port also when the server
    /// starts or stops.
    void serverPortChanged();
    void enabledChanged();
    void authorizedClientsChanged();
    void hasNoClientsChanged();
    void clientsProblemChanged();
    void hasClientsProblemChanged();

protected:
    /// Closes the sheet: there is nothing to cancel.
    void leaveSheet() override;

private:
    explicit QVServerPreferencesController(const QString &windowNibName);
    /// Starts to read the clients from the keychain.
    void loadAuthorizedClients();
    void didLoadAuthorizedClients(const Expected<QStringList> &clients);
    /// Receives whether the item of `client` is deleted.
    void didRevoke(const QString &client, const Expected<bool> &isRemoved);
    /// Sets why `client` was not revoked; no problem if that has not failed, or was posted.
    void showWhyNotRevoked(const QString &client, const Expected<bool> &isRemoved);

    QStringList m_authorizedClients;
    QStringList m_clientsBeingRevoked;
    bool m_knowsClients = false;
    QString m_clientsProblem;
};
