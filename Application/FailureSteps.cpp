#include "Application/FailureSteps.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

#include "Host/QVApplication.h"
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

}  // namespace

QList<RecoveryOption> FailureSteps::of(const QList<Item> &failed, const Editor &edit,
                                       const std::function<void()> &tryAgain) {
    QList<RecoveryOption> options;
    const Location location = onlyLocation(failed);
    if (location && !location->URL().isNil()) {
        options.append({stepText("Edit Location…"), [edit, edited = std::weak_ptr(location)] {
                            if (const Location living = edited.lock()) {
                                edit(living);
                            }
                        }});
    }
    options.append({stepText("Try Again"), tryAgain});
    if (location && location->URL().isFileURL()) {
        options.append({stepText("Show Folder"), [path = location->URL().path()] {
                            Workspace::selectFile(
                                path, [](const Error &error) { NSApp()->presentError(error); });
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
