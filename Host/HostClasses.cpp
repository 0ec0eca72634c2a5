#include "Host/LocationAdding.h"
#include "Host/LocationOffers.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"
#include "Host/PaneSelection.h"
#include "Host/QVApplication.h"
#include "Host/QVDailySchedule.h"
#include "Host/QVDatabase.h"
#include "Host/QVDirectConnectionServer.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/QVHostPlugIn.h"
#include "Host/QVHourlySchedule.h"
#include "Host/QVLocationEditing.h"
#include "Host/QVRemoteDatabase.h"
#include "Host/QVServedDatabase.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncState.h"
#include "Host/QVSyncStore.h"
#include "Host/QVWeeklySchedule.h"

// Key functions: each class has its type information in this library only, which plug-ins compare.
LocationAdding::~LocationAdding() = default;
LocationOffers::~LocationOffers() = default;
PZDropboxAccountInfo::~PZDropboxAccountInfo() = default;
PZFuture::~PZFuture() = default;
PaneSelection::~PaneSelection() = default;
QVApplication::~QVApplication() = default;
QVDailySchedule::~QVDailySchedule() = default;
QVDatabase::~QVDatabase() = default;
QVDirectConnectionServer::~QVDirectConnectionServer() = default;

QString QVDirectConnectionServer::addressText() const {
    return {};
}

QVariantList QVDirectConnectionServer::databases() const {
    return {};
}

QString QVDirectConnectionServer::lastConnectionText(const QString & /*client*/) const {
    return {};
}
QVDropboxSession::~QVDropboxSession() = default;
QVLocationEditing::~QVLocationEditing() = default;

QVHostPlugIn::~QVHostPlugIn() = default;

Expected<std::shared_ptr<QVDatabase>> QVHostPlugIn::openNewDatabase(const QString & /*name*/) {
    return nullptr;
}

Expected<void> QVHostPlugIn::renameDatabase(const std::shared_ptr<QVDatabase> & /*database*/,
                                            const QString & /*name*/) {
    return {};
}

Expected<void> QVHostPlugIn::closeDatabase(const std::shared_ptr<QVDatabase> & /*database*/) {
    return {};
}

bool QVHostPlugIn::fireSchedules(const QDateTime & /*date*/) {
    return false;
}

QVHourlySchedule::~QVHourlySchedule() = default;
QVRemoteDatabase::~QVRemoteDatabase() = default;
QVRemoteDatabaseMetadata::~QVRemoteDatabaseMetadata() = default;
QVServedDatabase::~QVServedDatabase() = default;
QVSyncDispatcher::~QVSyncDispatcher() = default;
QVSyncLocation::~QVSyncLocation() = default;
QVSyncLocationFormatter::~QVSyncLocationFormatter() = default;
QVSyncLocationsController::~QVSyncLocationsController() = default;

void QVSyncLocationsController::connectSaved(const QObject *receiver, const char *slot) const {
    if (metaObject()->indexOfSignal("saved()") >= 0) {
        connect(this, SIGNAL(saved()), receiver, slot);
    }
}
QVSyncPlugin::~QVSyncPlugin() = default;
QVSyncSchedule::~QVSyncSchedule() = default;
QVSyncState::~QVSyncState() = default;
QVSyncStore::~QVSyncStore() = default;
QVWeeklySchedule::~QVWeeklySchedule() = default;

namespace {

QVApplication *applicationObject = nullptr;

QVSyncPlugin::Class &syncPluginClass() {
    return requiredHostClass<QVSyncPlugin::Class>();
}

QVDirectConnectionServer::Class *serverClass() {
    return optionalHostClass<QVDirectConnectionServer::Class>();
}

}  // namespace

QVApplication *NSApp() {
    return applicationObject;
}

void setNSApp(QVApplication *application) {
    applicationObject = application;
}

bool QVSyncPlugin::isAvailable() {
    return syncPluginClass().isAvailable();
}

QVSyncPlugin *QVSyncPlugin::plugin() {
    return syncPluginClass().plugin();
}

std::shared_ptr<QVDatabase> QVSyncPlugin::databaseForUUID(const QString &UUID,
                                                          bool lookingUpAllKnownDatabases) {
    return syncPluginClass().databaseForUUID(UUID, lookingUpAllKnownDatabases);
}

QList<std::shared_ptr<QVDatabase>> QVDatabase::databases() {
    const auto *databaseClass = optionalHostClass<QVDatabase::Class>();
    return databaseClass ? databaseClass->databases() : QList<std::shared_ptr<QVDatabase>>();
}

QVSyncSchedulePtr QVSyncSchedule::newSchedule() {
    return requiredHostClass<QVSyncSchedule::Class>().newSchedule();
}

std::unique_ptr<QVSyncLocationFormatter> QVSyncLocationFormatter::formatterForLocationWithURL(
    const Url &URL) {
    return requiredHostClass<QVSyncLocationFormatter::Class>().formatterForLocationWithURL(URL);
}

std::shared_ptr<PZFuture> PZFuture::future() {
    return requiredHostClass<PZFuture::Class>().future();
}

QString QVDirectConnectionServer::URLScheme() {
    return serverClass() ? serverClass()->URLScheme() : QString();
}

quint16 QVDirectConnectionServer::defaultPort() {
    return serverClass() ? serverClass()->defaultPort() : 0;
}

QString QVDirectConnectionServer::bonjourServiceType() {
    return serverClass() ? serverClass()->bonjourServiceType() : QString();
}

QString QVDirectConnectionClientAuthorizationServiceName() {
    return serverClass() ? serverClass()->clientAuthorizationServiceName() : QString();
}
