#include "Controller/Preferences/QVSyncPreferences.h"

#include <QtWidgets/QMenu>
#include <algorithm>

#include "Controller/Preferences/ErrorExpiry.h"
#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/LocationRecovery.h"
#include "Controller/Preferences/PackageDrop.h"
#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Controller/Preferences/QVSyncScheduleEditor.h"
#include "Host/InboxUUID.h"
#include "Host/Notifications.h"
#include "Host/QVApplication.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/SaveLocations.h"
#include "Host/SyncLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Interface/Workspace.h"
#include "Platform/KeyValue/Binding.h"

namespace {

constexpr char sourceFile[] = "Controller/Preferences/QVSyncPreferences";

QVSyncPreferences *livePane = nullptr;

/// Returns the key of a database's row: the same for the inbox of every profile.
QString rowKey(const QVDatabase &database) {
    return UUIDInStores(database, NSApp()->inbox().get());
}

/// Selects the first of the rows for which `isMeant` is true, if there is one.
template <class Row, class Predicate>
void selectRow(NSArrayController &rows, Predicate isMeant) {
    const QVariantList objects = rows.arrangedObjects();
    const auto found = std::find_if(objects.begin(), objects.end(), [&](const QVariant &object) {
        return isMeant(*object.value<std::shared_ptr<Row>>());
    });
    if (found != objects.end()) {
        rows.setSelectionIndexes({found - objects.begin()});
    }
}

/// Lets Tab lead through `view` where its parent stands. Otherwise, a view that is added to a form
/// comes last.
void placeInTabOrder(QWidget *view) {
    QWidget *previous = view->parentWidget();
    while (previous != view && (previous->focusPolicy() & Qt::TabFocus) == 0) {
        previous = previous->previousInFocusChain();
    }
    const QWidgetList controls = view->findChildren<QWidget *>();
    QWidgetList ordered;
    for (QWidget *each = view->nextInFocusChain(); each != view; each = each->nextInFocusChain()) {
        if (controls.contains(each) && (each->focusPolicy() & Qt::TabFocus) != 0) {
            ordered.append(each);
        }
    }
    for (QWidget *each : std::as_const(ordered)) {
        QWidget::setTabOrder(previous, each);
        previous = each;
    }
}

}  // namespace

QVSyncPreferences::QVSyncPreferences(const QJsonObject &info) : PreferencePane(info) {}

QVSyncPreferences::~QVSyncPreferences() {
    livePane = nullptr;
    discardMainView();
}

QVSyncPreferences *QVSyncPreferences::preferences() {
    return livePane;
}

QString QVSyncPreferences::mainNibName() const {
    if (!QVSyncPlugin::isAvailable()) {
        syncLog().message(QStringLiteral("Sync is not available on this system."));
    }
    return QStringLiteral("Sync Preferences");
}

void QVSyncPreferences::awakeFromNib() {
    {
        const QMutexLocker lock(&m_awakening);
        embedScheduleEditor();
        livePane = this;
    }
    fillAddMenu();
    m_databasesView->setDelegate(this);
    m_locationsView->setDelegate(this);
    connect(m_databasesController, &ArrayController::selectedObjectsChanged, this,
            &QVSyncPreferences::forgetImportedIfAnotherIsSelected);
    // The viewport also receives what is dropped below the rows.
    new PackageDrop(m_locationsScrollView->viewport(), [this](const Url &URL) { addPackage(URL); });
    m_warningIcon = QIcon(QStringLiteral(":/SyncPreferences/QVSyncSelectionWarning.png"));
    m_warningIcon.setIsMask(true);
}

void QVSyncPreferences::embedScheduleEditor() {
    if (m_scheduleEditor) {
        return;
    }
    m_scheduleEditor = std::make_unique<QVSyncScheduleEditor>();
    QWidget *view = m_scheduleEditor->view();
    view->setParent(m_scheduleView);
    view->setGeometry(m_scheduleView->geometry());
    view->show();
    placeInTabOrder(view);
    m_scheduleEditor->setDelegate(this);
    KeyValue::announce<&QVSyncPreferences::scheduleEditorChanged>(this);
}

void QVSyncPreferences::fillAddMenu() {
    for (const LocationKind &kind : LocationKind::all()) {
        for (const LocationKind::MenuEntry &entry : kind.menuEntries) {
            QAction *item = m_addMenu->addAction(localizedSyncString(entry.title));
            item->setObjectName(QLatin1StringView(entry.name));
            connect(item, &QAction::triggered, this, [this, &kind, choose = entry.choose] {
                choose ? choose(*this) : addLocation(kind.makeEditor);
            });
        }
    }
}

void QVSyncPreferences::willSelect() {
    setLocalDatabasesByUUID(QVStandInsByUUID());
    m_locationsView->performBatchUpdates([this] {
        const auto locations = plugin()->locationsController()->syncLocations();
        for (const auto &location : locations) {
            addSelectionForLocation(location);
        }
    });
    for (const StandIn &database : openDatabases()) {
        (*m_localDatabasesByUUID)[database->UUID()] = database;
    }
    KeyValue::announce<&QVSyncPreferences::localDatabasesChanged>(this);

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, QVSyncPluginDidOpenDatabase,
                       [this](const Notification &notification) { didOpenDatabase(notification); });
    center.addObserver(
        this, QVSyncPluginDidCloseDatabase,
        [this](const Notification &notification) { didCloseDatabase(notification); });
    KeyValue::bind(m_scheduleEditor.get(), "representedObjects", m_databasesController,
                   "selectedObjects");
    m_scheduleEditor->startObservingScheduleFiring();
    appendLocationEditMenuItems();
}

void QVSyncPreferences::appendLocationEditMenuItems() {
    for (const char *title : {"New", "Open", "Save"}) {
        locationEditMenu()->addAction(QLatin1StringView(title));
    }
}

void QVSyncPreferences::willDeselect() {
    saveAndPresentError();
    m_importedUUIDs.clear();
    setLocalDatabasesByUUID({});
    NotificationCenter::defaultCenter().removeObserver(this);
    m_scheduleEditor->stopObservingScheduleFiring();
    KeyValue::unbind(m_scheduleEditor.get(), "representedObjects");
    // The lists and the schedule editor let go of the database rows, which share host objects.
    KeyValue::announce<&QVSyncPreferences::localDatabasesChanged>(this);
    m_scheduleEditor->setRepresentedObjects({});
}

void QVSyncPreferences::setLocalDatabasesByUUID(const std::optional<QVStandInsByUUID> &rows) {
    m_localDatabasesByUUID = rows;
    KeyValue::announce<&QVSyncPreferences::localDatabasesByUUIDChanged>(this);
}

QString QVSyncPreferences::currentVersionString() const {
    return info().value(QLatin1StringView("CFBundleShortVersionString")).toString();
}

QVSyncPlugin *QVSyncPreferences::plugin() const {
    return QVSyncPlugin::plugin();
}

// Cached, because each row reads it and looking it up in the icon theme is slow.
QPixmap QVSyncPreferences::databaseIcon() const {
    if (m_databaseIcon.isNull()) {
        const QIcon fallback(QStringLiteral(":/SyncPreferences/database.svg"));
        m_databaseIcon = Workspace::iconForFileType(QStringLiteral("qvBase2"), fallback)
                             .pixmap(QSize(32, 32), 2);
    }
    return m_databaseIcon;
}

bool QVSyncPreferences::isSandboxed() const {
    return plugin()->usesSandboxedAccess();
}

QMenu *QVSyncPreferences::locationEditMenu() const {
    return m_locationEditPopUpButton->menu();
}

QList<QVSyncPreferences::StandIn> QVSyncPreferences::localDatabases() const {
    QList<StandIn> rows;
    for (const auto &[UUID, row] : m_localDatabasesByUUID.value_or(QVStandInsByUUID())) {
        rows.append(row);
    }
    return sortedUsingDescriptors(rows, databaseSortDescriptors());
}

QList<SortDescriptor> QVSyncPreferences::databaseSortDescriptors() const {
    return {{.key = "name"}};
}

QList<QVSyncPreferences::StandIn> QVSyncPreferences::openDatabases() const {
    QList<StandIn> rows;
    for (const auto &database : QVDatabase::databases()) {
        rows.append(standInForDatabase(*database));
    }
    return rows;
}

QVSyncPreferences::StandIn QVSyncPreferences::standInForDatabase(const QVDatabase &database) const {
    auto row = std::make_shared<QVStandInDatabase>();
    row->setUUID(rowKey(database));
    row->setName(database.name());
    const auto locations = plugin()->locationsController()->syncLocations();
    QVSyncStates states;
    for (const auto &location : locations) {
        if (const auto state = location->stateForDatabaseWithUUID(row->UUID())) {
            states.append(state);
        }
    }
    row->addSynchronizationStates(states);
    row->addContainingLocationsObject(plugin()->localStore()->location());
    return row;
}

QVSyncPreferences::StandIn QVSyncPreferences::standInForSynchronizationState(
    const std::shared_ptr<QVSyncState> &state) const {
    auto row = std::make_shared<QVStandInDatabase>();
    row->setUUID(state->databaseUUID());
    row->setName(state->databaseName());
    row->addSynchronizationStatesObject(state);
    return row;
}

QVSyncPreferences::StandIn QVSyncPreferences::standInForAsynchronousDatabase(
    const std::shared_ptr<QVRemoteDatabase> &database) const {
    auto row = std::make_shared<QVStandInDatabase>();
    row->setUUID(database->UUID());
    row->setName(database->metadata()->name());
    return row;
}

QVSyncPreferences::StandIn QVSyncPreferences::localDatabaseForUUID(const QString &UUID) const {
    if (!m_localDatabasesByUUID) {
        return nullptr;
    }
    const auto found = m_localDatabasesByUUID->find(UUID);
    return found == m_localDatabasesByUUID->end() ? nullptr : found->second;
}

void QVSyncPreferences::addLocalDatabasesObject(const StandIn &database) {
    requireParameter(database != nullptr, "database != nil",
                     "QVSyncPreferences::addLocalDatabasesObject", sourceFile);
    if (m_localDatabasesByUUID) {
        (*m_localDatabasesByUUID)[database->UUID()] = database;
    }
    KeyValue::announce<&QVSyncPreferences::localDatabasesChanged>(this);
}

void QVSyncPreferences::removeLocalDatabasesObject(const StandIn &database) {
    requireParameter(database != nullptr, "database != nil",
                     "QVSyncPreferences::removeLocalDatabasesObject", sourceFile);
    if (m_localDatabasesByUUID) {
        m_localDatabasesByUUID->erase(database->UUID());
    }
    KeyValue::announce<&QVSyncPreferences::localDatabasesChanged>(this);
}

void QVSyncPreferences::didOpenDatabase(const Notification &notification) {
    const auto *opened = qobject_cast<const QVDatabase *>(notification.object);
    if (opened && !localDatabaseForUUID(rowKey(*opened))) {
        addLocalDatabasesObject(standInForDatabase(*opened));
        selectImported(rowKey(*opened));
    }
}

void QVSyncPreferences::awaitImported(const QStringList &UUIDs) {
    m_importedUUIDs = UUIDs;
    m_selectedAtImport = selectedDatabase();
}

void QVSyncPreferences::selectImported(const QString &UUID) {
    if (!m_importedUUIDs.contains(UUID)) {
        return;
    }
    m_importedUUIDs.clear();
    selectDatabase(UUID);
}

void QVSyncPreferences::forgetImportedIfAnotherIsSelected() {
    if (selectedDatabase() != m_selectedAtImport) {
        m_importedUUIDs.clear();
    }
}

void QVSyncPreferences::didCloseDatabase(const Notification &notification) {
    const auto *closed = qobject_cast<const QVDatabase *>(notification.object);
    // By the database's own UUID, so that the inbox keeps its row.
    if (const StandIn row = closed ? localDatabaseForUUID(closed->UUID()) : nullptr) {
        removeLocalDatabasesObject(row);
    }
}

void QVSyncPreferences::addSynchronizationSelectionsObject(const Selection &selection) {
    requireParameter(selection != nullptr, "selection != nil",
                     "QVSyncPreferences::addSynchronizationSelectionsObject", sourceFile);
    KeyValue::bind(selection.get(), "selectedDatabases", m_databasesController, "selectedObjects");
    new ErrorExpiry(selection.get());
    m_synchronizationSelections.append(selection);
    KeyValue::announce<&QVSyncPreferences::synchronizationSelectionsChanged>(this);
}

void QVSyncPreferences::addSelectionForLocation(const std::shared_ptr<QVSyncLocation> &location) {
    requireParameter(location != nullptr, "location != nil",
                     "QVSyncPreferences::addSelectionForLocation", sourceFile);
    const Selection selection =
        QVSynchronizationSelection::selectionWithDatabase(nullptr, location);
    addSynchronizationSelectionsObject(selection);
    selection->setSelected(true);
}

void QVSyncPreferences::removeSynchronizationSelectionsObject(const Selection &selection) {
    requireParameter(selection != nullptr, "selection != nil",
                     "QVSyncPreferences::removeSynchronizationSelectionsObject", sourceFile);
    const QVSyncStates states = selection->location()->synchronizationStates();
    for (const auto &state : states) {
        state->setEnabled(false);
    }
    if (const StandIn database = selection->database()) {
        database->updateCanSynchronize();
    }
    m_synchronizationSelections.removeAll(selection);
    KeyValue::announce<&QVSyncPreferences::synchronizationSelectionsChanged>(this);
}

QVSyncPreferences::Selection QVSyncPreferences::synchronizationSelectionForState(
    const std::shared_ptr<QVSyncState> &state, const StandIn &database) const {
    if (!state) {
        return nullptr;
    }
    for (const Selection &selection : m_synchronizationSelections) {
        const StandIn selected = selection->database();
        if (selection->location() == state->destination() && selected && database &&
            selected->UUID() == database->UUID()) {
            syncLog().verbose(QStringLiteral("Found synchronization selection %1")
                                  .arg(selection->locationFormatter()->title()));
            return selection;
        }
    }
    return nullptr;
}

QVSyncPreferences::Selection QVSyncPreferences::synchronizationSelectionForSyncLocationWithURL(
    const Url &URL) const {
    requireParameter(!URL.isNil(), "URL != nil",
                     "QVSyncPreferences::synchronizationSelectionForSyncLocationWithURL",
                     sourceFile);
    for (const Selection &selection : m_synchronizationSelections) {
        if (selection->location()->URL() == URL) {
            return selection;
        }
    }
    return nullptr;
}

QString QVSyncPreferences::selectedDatabase() const {
    const auto row = m_databasesController->lastSelectedObject().value<StandIn>();
    return row ? row->UUID() : QString();
}

void QVSyncPreferences::selectDatabase(const QString &UUID) {
    selectRow<QVStandInDatabase>(*m_databasesController,
                                 [&](const QVStandInDatabase &row) { return row.UUID() == UUID; });
}

std::shared_ptr<QVSyncLocation> QVSyncPreferences::selectedLocation() const {
    const auto row = m_syncLocationsController->lastSelectedObject().value<Selection>();
    return row ? row->location() : nullptr;
}

void QVSyncPreferences::selectLocation(const std::shared_ptr<QVSyncLocation> &location) {
    selectRow<QVSynchronizationSelection>(
        *m_syncLocationsController,
        [&](const QVSynchronizationSelection &row) { return row.location() == location; });
}

void QVSyncPreferences::saveAndPresentError() {
    const Expected<void> saved = saveLocations(*plugin()->locationsController());
    if (!saved) {
        Error error = saved.error();
        error.recoveryOptions = {LocationRecovery::tryAgainOption([pane = QPointer(this)] {
            if (pane) {
                pane->saveAndPresentError();
            }
        })};
        NSApp()->presentError(error);
    }
}

void QVSyncPreferences::editorDidChangeSchedule(QVSyncScheduleEditor * /*editor*/,
                                                const QVSyncSchedulePtr & /*schedule*/) {
    saveAndPresentError();
}

void QVSyncPreferences::toggleSynchronizationSelection(QObject * /*sender*/) {
    saveAndPresentError();
}

void QVSyncPreferences::presentSynchronizationSelectionError(const std::optional<Error> &error) {
    requireParameter(error.has_value(), "error != nil",
                     "QVSyncPreferences::presentSynchronizationSelectionError", sourceFile);
    NSApp()->presentError(*error);
}

CollectionViewItem *QVSyncPreferences::collectionViewItemPrototypeForRepresentedObject(
    QVListView * /*listView*/, const QVariant & /*object*/) {
    return nullptr;
}

bool QVSyncPreferences::collectionViewShouldSelectItem(QVListView *listView,
                                                       CollectionViewItem *item) {
    if (listView == m_databasesView) {
        const QMetaType type = item->representedObject().metaType();
        return type != QMetaType::fromType<QString>() &&
               type != QMetaType::fromType<std::nullptr_t>();
    }
    return listView == m_locationsView;
}

KeyValue::KeyPaths QVSyncPreferences::keyPathsForValuesAffectingDatabases() {
    return {"localDatabases"};
}
