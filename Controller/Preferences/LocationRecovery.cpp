#include "Controller/Preferences/LocationRecovery.h"

#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
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

}  // namespace

QList<RecoveryOption> LocationRecovery::options(const std::shared_ptr<QVSyncLocation> &location,
                                                const std::function<void()> &tryAgain) {
    QList<RecoveryOption> options;
    if (LocationKind::ofURL(location->URL())) {
        options.append(editOption(location));
    }
    options.append(tryAgainOption(tryAgain));
    if (location->URL().isFileURL()) {
        options.append({localizedSyncString("Show Folder"), [shown = std::weak_ptr(location)] {
                            if (const auto living = shown.lock()) {
                                showFolder(living);
                            }
                        }});
    }
    return options;
}

void LocationRecovery::showFolder(const std::shared_ptr<QVSyncLocation> &location) {
    Workspace::selectFile(location->URL().path(),
                          [edited = std::weak_ptr(location)](const Error &failure) {
                              Error error = failure;
                              if (const auto living = edited.lock()) {
                                  error.recoveryOptions = {editOption(living)};
                              }
                              NSApp()->presentError(error);
                          });
}

QList<RecoveryOption> LocationRecovery::withLog(const QList<RecoveryOption> &options) {
    const std::optional<RecoveryOption> showLog = QVJobLog::showOption();
    return showLog ? QList{*showLog} + options : options;
}

std::function<void()> LocationRecovery::lastJobOf(const std::shared_ptr<QVSyncState> &state) {
    const std::optional<QVSyncResult> result = QVSyncResult::of(state.get());
    return [again = std::weak_ptr(state), isCleanUp = result && result->isCleanUp] {
        QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
        const auto living = again.lock();
        if (living && isCleanUp) {
            dispatcher->cleanRemoteStoreWithSynchronizationState(living, [] {});
        } else if (living) {
            dispatcher->performSynchronizationsWithSynchronizationStates({living});
        }
    };
}

RecoveryOption LocationRecovery::tryAgainOption(const std::function<void()> &tryAgain) {
    return {localizedSyncString("Try Again"), tryAgain};
}
