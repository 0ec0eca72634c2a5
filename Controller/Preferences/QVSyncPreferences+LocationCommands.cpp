#include <algorithm>
#include <utility>

#include "Controller/Preferences/LocationRecovery.h"
#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVDropboxLocationEditor.h"
#include "Controller/Preferences/QVFolderLocationEditor.h"
#include "Controller/Preferences/QVServerPreferencesController.h"
#include "Controller/Preferences/QVSyncBookmarkManager.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/QVWebDAVLocationEditor.h"
#include "Controller/QVImportDatabasesController.h"
#include "Host/QVApplication.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncResult.h"
#include "Host/SyncLog.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Interface/SheetWindow.h"

namespace {

constexpr char commandsSourceFile[] = "Controller/Preferences/QVSyncPreferences";

/// Returns a new location without URL; null if the host provides no such class.
std::shared_ptr<QVSyncLocation> newLocation() {
    const auto *locationClass = optionalHostClass<QVSyncLocation::Class>();
    return locationClass ? locationClass->syncLocationWithURL({}) : nullptr;
}

}  // namespace

QVSyncPreferences::Selection QVSyncPreferences::selectedRow() const {
    return m_syncLocationsController ? m_syncLocationsController->lastSelectedObject()
                                           .value<std::shared_ptr<QVSynchronizationSelection>>()
                                     : nullptr;
}

void QVSyncPreferences::addLocation(const LocationKind::EditorFactory &makeEditor) {
    if (const auto location = newLocation()) {
        editLocationWithEditor(makeEditor(location));
    }
}

void QVSyncPreferences::addFileLocation(QObject * /*sender*/) {
    addLocation(&QVFolderLocationEditor::editorWithSyncLocation);
}

void QVSyncPreferences::addWebDAVLocation(QObject * /*sender*/) {
    addLocation(&QVWebDAVLocationEditor::editorWithSyncLocation);
}

void QVSyncPreferences::addDropboxLocation(QObject * /*sender*/) {
    addLocation(&QVDropboxLocationEditor::editorWithSyncLocation);
}

void QVSyncPreferences::addDirectConnectionLocation(QObject * /*sender*/) {
    addLocation(&QVDirectConnectionLocationEditor::editorWithSyncLocation);
}

void QVSyncPreferences::createFolder(QObject * /*sender*/) {
    const auto location = newLocation();
    if (!location) {
        return;
    }
    const auto editor = QVFolderLocationEditor::editorWithSyncLocation(location);
    editor->createFolderWithCompletionHandler(
        [this, &editor](qint64 result) { addFolderLocation(*editor, result); });
}

void QVSyncPreferences::selectFolder(QObject * /*sender*/) {
    const auto location = newLocation();
    if (!location) {
        return;
    }
    const auto editor = QVFolderLocationEditor::editorWithSyncLocation(location);
    editor->selectFolderWithCompletionHandler(
        [this, &editor](qint64 result) { addFolderLocation(*editor, result); });
}

void QVSyncPreferences::addFolderLocation(const QVFolderLocationEditor &editor, qint64 result) {
    if (result == 1) {
        addSyncLocation(editor.location());
        tickAdded(editor.location());
        saveAndPresentError();
        announceAddedSelection();
    }
    showNext(result == 1);
}

void QVSyncPreferences::addLocationOfKind(const QString &kind, Next next) {
    const LocationKind *added = LocationKind::offeredAs(kind);
    if (!added || SheetWindow::isShownOn(*mainView()->window())) {
        return;
    }
    const QList<StandIn> rows = localDatabases();
    if (selectedDatabase().isEmpty() && !rows.isEmpty()) {
        selectDatabase(rows.constFirst()->UUID());
    }
    m_next = next;
    m_ticksAll = true;
    if (added->offer->choose) {
        added->offer->choose(*this, next);
        // The user may have cancelled.
        forgetNext();
    } else {
        addLocation(added->makeEditor);
    }
}

void QVSyncPreferences::showNext(bool isAdded) {
    const Next next = m_next;
    forgetNext();
    if (next == Next::DatabasesToImport && isAdded) {
        showImportDatabasesSheet(nullptr);
    }
}

void QVSyncPreferences::forgetNext() {
    m_next = Next::Nothing;
    m_ticksAll = false;
}

void QVSyncPreferences::tickAdded(const std::shared_ptr<QVSyncLocation> &location) {
    const QList<StandIn> rows = m_ticksAll ? localDatabases() : QList<StandIn>();
    for (const StandIn &row : rows) {
        QVSynchronizationSelection::selectionWithDatabase(row, location)->setSelected(true);
    }
}

void QVSyncPreferences::addPackage(const Url &URL) {
    if (const Selection row = synchronizationSelectionForSyncLocationWithURL(URL)) {
        selectLocation(row->location());
        return;
    }
    if (const auto location = newLocation()) {
        location->setURL(URL);
        plugin()->bookmarkURL(URL);
        addSyncLocation(location);
        saveAndPresentError();
        announceAddedSelection();
    }
}

void QVSyncPreferences::editSyncLocation(const std::shared_ptr<QVSyncLocation> &location) {
    editLocationWithEditor(locationEditorForLocation(location));
}

bool QVSyncPreferences::editLocation(const std::shared_ptr<QVSyncLocation> &location) {
    if (SheetWindow::isShownOn(*mainView()->window()) || !LocationKind::ofURL(location->URL())) {
        return false;
    }
    editSyncLocation(location);
    return true;
}

void QVSyncPreferences::editSelectedSyncLocation(QObject * /*sender*/) {
    if (const Selection row = selectedRow()) {
        editSyncLocation(row->location());
    }
}

void QVSyncPreferences::editSyncSelection(const Selection &selection) {
    requireParameter(selection != nullptr, "selection != nil",
                     "QVSyncPreferences::editSyncSelection", commandsSourceFile);
    if (selection->isEditable()) {
        editSyncLocation(selection->location());
    }
}

void QVSyncPreferences::synchronizeDatabase(const StandIn &database) {
    requireParameter(database != nullptr, "database != nil",
                     "QVSyncPreferences::synchronizeDatabase", commandsSourceFile);
    QVSyncStates ticked = database->synchronizationStates();
    ticked.removeIf([](const auto &state) { return !state->isEnabled(); });
    if (!ticked.isEmpty()) {
        plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(ticked);
    }
}

std::shared_ptr<QVSyncLocationEditor> QVSyncPreferences::locationEditorForLocation(
    const std::shared_ptr<QVSyncLocation> &location) const {
    const LocationKind *kind = location ? LocationKind::ofURL(location->URL()) : nullptr;
    return kind ? kind->makeEditor(location) : nullptr;
}

void QVSyncPreferences::editLocationWithEditor(
    const std::shared_ptr<QVSyncLocationEditor> &editor) {
    requireParameter(editor != nullptr, "editor != nil",
                     "QVSyncPreferences::editLocationWithEditor", commandsSourceFile);
    const bool isNew =
        !plugin()->locationsController()->syncLocations().contains(editor->location());
    // The pane keeps the editor; its handler must not, since the editor keeps the handler. The
    // sheet may outlive the pane.
    m_editors.append(editor);
    editor->runLocationEditorModalForWindow(
        mainView()->window(), isNew,
        [pane = QPointer(this), edited = editor.get(), isNew](qint64 result) {
            if (pane) {
                pane->didEditLocation(edited->shared_from_this(), isNew, result);
            }
        });
}

void QVSyncPreferences::didEditLocation(const std::shared_ptr<QVSyncLocationEditor> &editor,
                                        bool isNew, qint64 result) {
    m_editors.removeOne(editor);
    if (result != 1) {
        showNext(false);
        return;
    }
    if (isNew) {
        addSyncLocation(editor->location());
        tickAdded(editor->location());
    } else {
        forgetFailures(*editor->location());
    }
    saveAndPresentError();
    if (isNew) {
        announceAddedSelection();
    }
    showNext(isNew);
}

void QVSyncPreferences::forgetFailures(const QVSyncLocation &location) {
    const QVSyncStates states = location.synchronizationStates();
    for (const auto &state : states) {
        QVSyncResult::forgetFailure(state.get());
    }
    for (const Selection &row : std::as_const(m_synchronizationSelections)) {
        if (row->location().get() == &location) {
            row->setError({});
        }
    }
}

void QVSyncPreferences::announceAddedSelection() {
    const Selection added = m_synchronizationSelections.last();
    m_addedSelection = added;
    selectLocation(added->location());
    KeyValue::announce<&QVSyncPreferences::addedSelectionChanged>(this);
}

void QVSyncPreferences::addSyncLocation(const std::shared_ptr<QVSyncLocation> &location) {
    requireParameter(location != nullptr, "location != nil", "QVSyncPreferences::addSyncLocation",
                     commandsSourceFile);
    QVSyncLocationsController *controller = plugin()->locationsController();
    controller->insertObjectInSyncLocationsAtIndex(location, controller->countOfSyncLocations());
    addSelectionForLocation(location);
}

void QVSyncPreferences::removeSyncSelection(
    const std::shared_ptr<QVSynchronizationSelection> &selection) {
    requireParameter(selection != nullptr, "selection != nil",
                     "QVSyncPreferences::removeSyncSelection", commandsSourceFile);
    const QVSyncStates states = selection->location()->synchronizationStates();
    const QVariantList rows = m_databasesController->arrangedObjects();
    for (const auto &state : states) {
        for (const QVariant &row : rows) {
            if (const auto database = row.value<StandIn>()) {
                database->removeSynchronizationStatesObject(state);
            }
        }
    }
    QVSyncLocationsController *controller = plugin()->locationsController();
    controller->removeObjectFromSyncLocationsAtIndex(
        controller->indexOfObjectInSyncLocations(selection->location()));
    removeSynchronizationSelectionsObject(selection);
    saveAndPresentError();
}

void QVSyncPreferences::cleanSelectedSyncLocation(QObject * /*sender*/) {
    const Selection row = selectedRow();
    const StandIn database = row ? row->database() : nullptr;
    cleanLocationForDatabaseWithUUID(row ? row->location() : nullptr,
                                     database ? database->UUID() : QString());
}

void QVSyncPreferences::cleanLocationForDatabaseWithUUID(
    const std::shared_ptr<QVSyncLocation> &location, const QString &UUID) {
    constexpr char method[] = "QVSyncPreferences::cleanLocationForDatabaseWithUUID";
    requireParameter(location != nullptr, "_location != nil", method, commandsSourceFile);
    requireParameter(!UUID.isNull(), "_UUID != nil", method, commandsSourceFile);
    syncLog().message(QStringLiteral("Attempting to clean location %1")
                          .arg(location->URL().stringWithoutPassword()));
    plugin()->dispatcher()->cleanRemoteStoreWithSynchronizationState(
        location->stateForDatabaseWithUUID(UUID), [location = location]() mutable {
            // Moved, so that the location is never released on the thread of the clean-up.
            MainQueue::dispatchAsync([location = std::move(location)] {
                syncLog().message(QStringLiteral("Finished cleaning location %1")
                                      .arg(location->URL().stringWithoutPassword()));
            });
        });
}

void QVSyncPreferences::revealInFinder(QObject * /*sender*/) {
    if (const Selection row = selectedRow()) {
        LocationRecovery::showFolder(row->location());
    }
}

bool QVSyncPreferences::isRevealableInFinder() const {
    const Selection row = selectedRow();
    return row && row->location()->URL().isFileURL();
}

void QVSyncPreferences::openBookmarkManager(QObject * /*sender*/) {
    QVSyncBookmarkManager::bookmarkManager()->runBookmarkManagerModalForWindow(
        mainView()->window());
}

void QVSyncPreferences::showServerPreferences(QObject * /*sender*/) {
    QVServerPreferencesController::controller()->runServerPreferencesModalForWindow(
        mainView()->window());
}

void QVSyncPreferences::showImportDatabasesSheet(QObject * /*sender*/) {
    if (m_importController) {
        return;
    }
    m_importController = QVImportDatabasesController::newController();
    m_importController->runImportDatabasesSheetModalForWindow(
        mainView()->window(), [pane = QPointer(this)] {
            if (pane) {
                pane->awaitImported(pane->m_importController->importedUUIDs());
                pane->m_importController.reset();
            }
        });
}
