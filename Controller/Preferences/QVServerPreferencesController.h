#pragma once

#include <QtCore/QStringList>
#include <memory>

#include "Host/QVDirectConnectionServer.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Interface/WindowController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SortDescriptor.h"

/// The settings of the built-in server, in a sheet: whether it serves, its port, and which clients
/// may connect. Every change reaches the server and the user defaults at once. The clients are read
/// from the keychain once, without waiting, when the controller is made. Main thread.
class QVServerPreferencesController : public WindowController {
    Q_OBJECT
    /// nullptr where the host has none.
    Q_PROPERTY(QVDirectConnectionServer *server READ server CONSTANT)
    Q_PROPERTY(quint16 serverPort READ serverPort WRITE setServerPort NOTIFY serverPortChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    /// The names of the authorized clients, each once.
    Q_PROPERTY(QStringList authorizedClients READ authorizedClients NOTIFY authorizedClientsChanged)
    Q_PROPERTY(QList<SortDescriptor> authorizedClientsSortDescriptors READ
                   authorizedClientsSortDescriptors CONSTANT)
    /// Whether the keychain names no client; false until it has been read.
    Q_PROPERTY(bool hasNoClients READ hasNoClients NOTIFY hasNoClientsChanged)
public:
    static std::unique_ptr<QVServerPreferencesController> controller();

    QVDirectConnectionServer *server() const;
    quint16 serverPort() const;
    /// Written to the defaults as "QVDirectConnectionServerPortNumber".
    void setServerPort(quint16 port);
    bool isEnabled() const;
    /// Written to the defaults as "QVDirectConnectionServerEnabled".
    void setEnabled(bool enabled);
    QStringList authorizedClients() const { return m_authorizedClients; }
    bool hasNoClients() const { return m_knowsClients && m_authorizedClients.isEmpty(); }
    /// Returns whether the keychain is still being read.
    bool isLoadingClients() const { return m_isLoadingClients; }
    QList<SortDescriptor> authorizedClientsSortDescriptors() const;
    void addAuthorizedClientsObject(const QString &client);

    /// Returns when the sheet has closed. An absent window is a programming error.
    void runServerPreferencesModalForWindow(QWidget *parentWindow);

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingServerPort() {
        return {"server.serving"};
    }

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingHasNoClients() {
        return {"authorizedClients"};
    }

public Q_SLOTS:
    /// Revokes a client, by deleting its keychain item. Where that fails it stays in the list.
    void removeAuthorizedClientsObject(const QString &client);
    void acceptModalSheet(QObject *sender);

Q_SIGNALS:
    void serverPortChanged();
    void enabledChanged();
    void authorizedClientsChanged();
    void hasNoClientsChanged();

protected:
    void leaveSheet() override;

private:
    explicit QVServerPreferencesController(const QString &windowNibName);
    void loadAuthorizedClients();
    void didLoadAuthorizedClients(const Expected<QStringList> &clients);

    QStringList m_authorizedClients;
    bool m_isLoadingClients = true;
    bool m_knowsClients = false;
};
