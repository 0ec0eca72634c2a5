#include "Application/FailureSteps.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

#include "Host/QVApplication.h"
#include "Host/QVJobLog.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
#include "Platform/Interface/Workspace.h"

namespace {

using Item = SynchronizationSummary::Item;
using Location = std::shared_ptr<QVSyncLocation>;

QString stepText(const char *text) {
    return QCoreApplication::translate("FailureSteps", text);
}

/// Returns the location of all items; null if there are none or several.
Location onlyLocation(const QList<Item> &items) {
    const Location first = items.isEmpty() ? nullptr : items.first().state->destination();
    const bool isOnly = std::all_of(items.begin(), items.end(), [&](const Item &item) {
        return item.state->destination() == first;
    });
    return isOnly ? first : nullptr;
}

RecoveryOption editOption(const Location &location, const FailureSteps::Editor &edit) {
    return {stepText("Edit Location…"), [edit, edited = std::weak_ptr(location)] {
                if (const Location living = edited.lock()) {
                    edit(living);
                }
            }};
}

void showFolder(const Location &location, const FailureSteps::Editor &edit) {
    Workspace::selectFile(location->URL().path(), [step = editOption(location, edit)](Error error) {
        error.recoveryOptions = {step};
        NSApp()->presentError(error);
    });
}

}  // namespace

QList<RecoveryOption> FailureSteps::of(const QList<Item> &failed, const Editor &edit,
                                       const std::function<void()> &tryAgain) {
    QList<RecoveryOption> options;
    const bool isPartial =
        std::any_of(failed.begin(), failed.end(), [](const Item &item) { return item.isPartial; });
    if (const auto showLog = isPartial ? QVJobLog::showOption() : std::nullopt) {
        options.append(*showLog);
    }
    const Location location = onlyLocation(failed);
    if (location && !location->URL().isNil()) {
        options.append(editOption(location, edit));
    }
    options.append({stepText("Try Again"), tryAgain});
    if (location && location->URL().isFileURL()) {
        options.append({stepText("Show Folder"), [edit, shown = std::weak_ptr(location)] {
                            if (const Location living = shown.lock()) {
                                showFolder(living, edit);
                            }
                        }});
    }
    return options;
}

void FailureSteps::runAgain(const QList<Item> &failed) {
    QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
    QVSyncStates states;
    for (const Item &item : failed) {
        const std::optional<QVSyncResult> result = QVSyncResult::of(item.state.get());
        if (result && result->isCleanUp) {
            dispatcher->cleanRemoteStoreWithSynchronizationState(item.state, [] {});
        } else {
            states.append(item.state);
        }
    }
    dispatcher->performSynchronizationsWithSynchronizationStates(states);
}
