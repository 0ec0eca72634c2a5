#include "Controller/Preferences/DiscoveryHint.h"

#include "Host/SyncStrings.h"

DiscoveryHint::DiscoveryHint(QObject *parent) : QObject(parent) {
    connect(&m_discovery, &ServiceDiscovery::availableChanged, this, &DiscoveryHint::textChanged);
}

QString DiscoveryHint::text() const {
    return m_discovery.isAvailable()
               ? localizedSyncString(
                     "No computer has been found yet. Turn on its server there under “Direct "
                     "Connections…”, or enter its address.")
               : localizedSyncString(
                     "Computers cannot be found, because the service “Avahi” is not running on "
                     "this "
                     "computer. Start it, or enter the address of the other computer.");
}
