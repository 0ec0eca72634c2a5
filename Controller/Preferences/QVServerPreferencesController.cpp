#include "Controller/Preferences/QVServerPreferencesController.h"

#include "Host/DefaultsKeys.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/UserDefaults.h"
#include "Platform/Security/Keychain.h"
#include "Platform/Security/SecretStore.h"

namespace {

/// Returns the first bytes of `text` in UTF-8, as many as it has UTF-16 code units. This truncates
/// a name that is not ASCII, which then matches no item; the server therefore stores ASCII only.
QByteArray bytesOfUnitLength(const QString &text) {
    return text.toUtf8().left(text.size());
}

/// A server that was switched off would serve again at the next start if this is not saved.
void save(const QString &key, const QVariant &value) {
    if (const Expected<void> saved = UserDefaults::setValue(key, value); !saved) {
        NSApp()->presentError(saved.error());
    }
}

}  // namespace

QVServerPreferencesController::QVServerPreferencesController(const QString &windowNibName)
    : WindowController(windowNibName) {
    loadAuthorizedClients();
    KeyValue::followDependencies(this);
}

std::unique_ptr<QVServerPreferencesController> QVServerPreferencesController::controller() {
    return std::unique_ptr<QVServerPreferencesController>(
        new QVServerPreferencesController(QStringLiteral("QVServerPreferences")));
}

void QVServerPreferencesController::loadAuthorizedClients() {
    const QString service = QVDirectConnectionClientAuthorizationServiceName();
    Keychain::shared().findAccounts(
        service, [controller = QPointer(this)](const Expected<QStringList> &clients) {
            if (controller) {
                controller->didLoadAuthorizedClients(clients);
            }
        });
}

void QVServerPreferencesController::didLoadAuthorizedClients(const Expected<QStringList> &clients) {
    for (const QString &client : clients.value_or(QStringList())) {
        addAuthorizedClientsObject(client);
    }
    m_knowsClients = clients.has_value();
    if (!clients) {
        m_clientsProblem =
            localizedSyncString(
                "The computers that may connect cannot be listed. %1 Start or unlock the password "
                "service, and open this window again.")
                .arg(clients.error().localizedFailureReason);
    }
    KeyValue::announce<&QVServerPreferencesController::authorizedClientsChanged>(this);
}

QVDirectConnectionServer *QVServerPreferencesController::server() const {
    return QVSyncPlugin::plugin()->server();
}

quint16 QVServerPreferencesController::serverPort() const {
    return server() ? server()->port() : 0;
}

void QVServerPreferencesController::setServerPort(quint16 port) {
    save(DefaultsKeys::DirectConnectionServerPortNumber, port);
    if (server()) {
        server()->setPort(port);
    }
    KeyValue::announce<&QVServerPreferencesController::serverPortChanged>(this);
    // A server whose new port is in use has stopped.
    KeyValue::announce<&QVServerPreferencesController::enabledChanged>(this);
}

bool QVServerPreferencesController::isEnabled() const {
    return server() && server()->isServing();
}

void QVServerPreferencesController::setEnabled(bool enabled) {
    save(DefaultsKeys::DirectConnectionServerEnabled, enabled);
    if (server() && enabled != server()->isServing()) {
        enabled ? server()->startServing() : server()->stopServing();
    }
    KeyValue::announce<&QVServerPreferencesController::enabledChanged>(this);
}

QList<SortDescriptor> QVServerPreferencesController::authorizedClientsSortDescriptors() const {
    return {{.key = "self"}};
}

void QVServerPreferencesController::addAuthorizedClientsObject(const QString &client) {
    if (!m_authorizedClients.contains(client)) {
        m_authorizedClients.append(client);
    }
    KeyValue::announce<&QVServerPreferencesController::authorizedClientsChanged>(this);
}

void QVServerPreferencesController::removeAuthorizedClientsObject(const QString &client) {
    if (m_clientsBeingRevoked.contains(client)) {
        return;
    }
    m_clientsBeingRevoked.append(client);
    const QString service = QVDirectConnectionClientAuthorizationServiceName();
    Keychain::shared().removeFirstLater(
        bytesOfUnitLength(service), bytesOfUnitLength(client),
        [controller = QPointer(this), client](const Expected<bool> &isRemoved) {
            if (controller) {
                controller->didRevoke(client, isRemoved);
            }
        });
}

void QVServerPreferencesController::didRevoke(const QString &client,
                                              const Expected<bool> &isRemoved) {
    m_clientsBeingRevoked.removeOne(client);
    showWhyNotRevoked(client, isRemoved);
    if (isRemoved.value_or(false)) {
        m_authorizedClients.removeOne(client);
        KeyValue::announce<&QVServerPreferencesController::authorizedClientsChanged>(this);
    }
}

void QVServerPreferencesController::showWhyNotRevoked(const QString &client,
                                                      const Expected<bool> &isRemoved) {
    QString problem;
    if (!isRemoved && SecretStore::isServiceMissing(isRemoved.error())) {
        problem = localizedSyncString(
                      "“%1” was not revoked and may still connect. %2 Start the password service, "
                      "and revoke it again.")
                      .arg(client, isRemoved.error().localizedFailureReason);
    }
    if (problem != m_clientsProblem) {
        m_clientsProblem = problem;
        KeyValue::announce<&QVServerPreferencesController::clientsProblemChanged>(this);
        KeyValue::announce<&QVServerPreferencesController::hasClientsProblemChanged>(this);
    }
}

void QVServerPreferencesController::runServerPreferencesModalForWindow(QWidget *parentWindow) {
    requireParameter(parentWindow, "parentWindow != nil",
                     "QVServerPreferencesController::runServerPreferencesModalForWindow",
                     "Controller/Preferences/QVServerPreferencesController", 69);
    runModalSheet(parentWindow);
}

void QVServerPreferencesController::acceptModalSheet(QObject * /*sender*/) {
    stopModal(1);
}

void QVServerPreferencesController::leaveSheet() {
    acceptModalSheet(nullptr);
}
