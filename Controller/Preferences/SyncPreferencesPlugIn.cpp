#include "Controller/Preferences/SyncPreferencesPlugIn.h"

#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/SyncPreferencesInterface.h"
#include "Host/ClassRegistry.h"
#include "Host/SyncStrings.h"

namespace {

QStringList missingHostClasses() {
    QStringList missing;
    for (const char *name :
         {"QVSyncPlugin", "QVSyncLocationFormatter", "QVSyncSchedule", "PZFuture"}) {
        if (!NSClassFromString(QLatin1StringView(name))) {
            missing.append(QLatin1StringView(name));
        }
    }
    return missing;
}

}  // namespace

Expected<std::unique_ptr<PreferencePane>> SyncPreferencesPlugIn::makePreferencePane(
    const QJsonObject &info) {
    if (const QStringList missing = missingHostClasses(); !missing.isEmpty()) {
        return failure(
            {.domain = QStringLiteral("SyncPreferences"),
             .localizedDescription =
                 localizedSyncString("Sync Preferences cannot be used: the sync plug-in has no %1.")
                     .arg(missing.join(QStringLiteral(", ")))});
    }
    registerSyncPreferencesInterface();
    return std::make_unique<QVSyncPreferences>(info);
}
