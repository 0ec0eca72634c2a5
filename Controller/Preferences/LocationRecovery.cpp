#include "Controller/Preferences/LocationRecovery.h"

#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Platform/Interface/Workspace.h"

namespace {

void edit(const std::shared_ptr<QVSyncLocation> &location) {
    // Another pane than when the error was presented.
    if (QVSyncPreferences *pane = QVSyncPreferences::preferences()) {
        pane->editLocation(location);
    }
}

RecoveryOption editOption(const std::shared_ptr<QVSyncLocation> &location) {
    return {localizedSyncString("Edit Location…"), [edited = std::weak_ptr(location)] {
                if (const auto living = edited.lock()) {
                    edit(living);
                }
            }};
}

RecoveryOption showOption(const QString &path) {
    return {localizedSyncString("Show Folder"), [path] {
                Workspace::selectFile(path,
                                      [](const Error &error) { NSApp()->presentError(error); });
            }};
}

}  // namespace

QList<RecoveryOption> LocationRecovery::options(const std::shared_ptr<QVSyncLocation> &location,
                                                const std::function<void()> &tryAgain) {
    QList<RecoveryOption> options;
    if (LocationKind::ofURL(location->URL())) {
        options.append(editOption(location));
    }
    options.append(tryAgainOption(tryAgain));
    if (location->URL().isFileURL()) {
        options.append(showOption(location->URL().path()));
    }
    return options;
}

RecoveryOption LocationRecovery::tryAgainOption(const std::function<void()> &tryAgain) {
    return {localizedSyncString("Try Again"), tryAgain};
}
