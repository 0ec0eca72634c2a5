#include "Controller/Preferences/SyncPreferencesPlugIn.h"

#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/ClassRegistry.h"
#include "Host/PZFuture.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncSchedule.h"
#include "Host/SyncStrings.h"

namespace {

QStringList missingHostClasses() {
    QStringList missing;
    for (const QLatin1StringView name :
         {QVSyncPlugin::Class::Name, QVSyncLocationFormatter::Class::Name,
          QVSyncSchedule::Class::Name, PZFuture::Class::Name}) {
        if (!NSClassFromString(name)) {
            missing.append(name);
        }
    }
    return missing;
}

Error unusableError(const QString &description) {
    return {.domain = SyncErrorDomain, .localizedDescription = description};
}

/// Fails if the host was compiled for another interface.
Expected<void> checkHostVersion() {
    const auto version = hostVersionOfClass(QVSyncPlugin::Class::Name);
    if (version && version->major == CurrentHostVersion.major) {
        return {};
    }
    return failure(unusableError(
        localizedSyncString("Sync Preferences cannot be used: it needs version %1 of the interface "
                            "to the sync plug-in, which offers version %2. Install both from the "
                            "same version of Velmora.")
            .arg(CurrentHostVersion.text(), version.value_or(HostVersion()).text())));
}

}  // namespace

Expected<std::unique_ptr<PreferencePane>> SyncPreferencesPlugIn::makePreferencePane(
    const QJsonObject &info) {
    if (const QStringList missing = missingHostClasses(); !missing.isEmpty()) {
        return failure(unusableError(
            localizedSyncString("Sync Preferences cannot be used: the sync plug-in has no %1. "
                                "Install both from the same version of Velmora.")
                .arg(missing.join(QStringLiteral(", ")))));
    }
    if (const Expected<void> isFit = checkHostVersion(); !isFit) {
        return failure(isFit.error());
    }
    registerSyncPreferencesInterface();
    return std::make_unique<QVSyncPreferences>(info);
}

QList<LocationOffer> SyncPreferencesPlugIn::locationOffers() const {
    return LocationKind::offers();
}
