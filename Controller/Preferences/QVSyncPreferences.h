#pragma once

#include <QtCore/QMutex>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <map>
#include <memory>

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/Preferences/LocationKind.h"
#include "Controller/Preferences/QVStandInDatabase.h"
#include "Controller/Preferences/QVSyncScheduleEditor.h"
#include "Controller/Preferences/QVSyncScheduleEditorDelegate.h"
#include "Controller/Preferences/QVSynchronizationSelection.h"
#include "Host/LocationAdding.h"
#include "Host/PaneSelection.h"
#include "Host/QVLocationEditing.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Interface/PreferencePane.h"
#include "View/ListScrollArea.h"
#include "View/QVListView.h"
#include "View/QVListViewDelegate.h"

class QVDatabase;
/// The rows of the database list by UUID, the inbox under `InboxUUID`.
using QVStandInsByUUID = std::map<QString, std::shared_ptr<QVStandInDatabase>>;
class QVFolderLocationEditor;
class QVImportDatabasesController;
class QVSyncLocationEditor;
struct Notification;

/// The pane "Sync Preferences": which open database synchronizes with which location, and when.
///
/// Must be used on the main thread. It owns its rows and the schedule editor, and shares databases,
/// locations and states with the sync plug-in. Changes are saved immediately unless a function says
/// otherwise; errors are presented to the user. An AssertionFailure is raised for null arguments
/// where a function says that they must not be null.
class QVSyncPreferences : public PreferencePane,
                          public QVListViewDelegate,
                          public QVSyncScheduleEditorDelegate,
                          public QVLocationEditing,
                          public PaneSelection,
                          public LocationAdding {
    Q_OBJECT
    Q_PROPERTY(QString currentVersionString READ currentVersionString CONSTANT)
    /// The host's sync plug-in. Not owned; lives as long as the program.
    Q_PROPERTY(QVSyncPlugin *plugin READ plugin CONSTANT)
    /// The same as localDatabases; the name to which the form binds.
    Q_PROPERTY(
        QList<std::shared_ptr<QVStandInDatabase>> databases READ databases NOTIFY databasesChanged)
    /// The rows of the open databases and the inbox, sorted by name. Empty while the pane is not
    /// shown.
    Q_PROPERTY(QList<std::shared_ptr<QVStandInDatabase>> localDatabases READ localDatabases NOTIFY
                   localDatabasesChanged)
    /// New rows for the databases that are open now, in the host's order. Each read makes new ones.
    Q_PROPERTY(QList<std::shared_ptr<QVStandInDatabase>> openDatabases READ openDatabases)
    /// The rows by UUID. An empty optional before the pane is shown and after it is left.
    Q_PROPERTY(std::optional<QVStandInsByUUID> localDatabasesByUUID READ localDatabasesByUUID NOTIFY
                   localDatabasesByUUIDChanged)
    /// Null before awakeFromNib(). Owned by the pane.
    Q_PROPERTY(
        QVSyncScheduleEditor *scheduleEditor READ scheduleEditor NOTIFY scheduleEditorChanged)
    /// The rows of the location list. Each time the pane is shown, one row for each location is
    /// added.
    Q_PROPERTY(QList<std::shared_ptr<QVSynchronizationSelection>> synchronizationSelections READ
                   synchronizationSelections NOTIFY synchronizationSelectionsChanged)
    /// The row of the location that a command has added last; null if there is none. Announced when
    /// the location is saved and its sheet is closed.
    Q_PROPERTY(std::shared_ptr<QVSynchronizationSelection> addedSelection READ addedSelection NOTIFY
                   addedSelectionChanged)
    /// Whether the host restricts access to folders that the user has granted.
    Q_PROPERTY(bool sandboxed READ isSandboxed)
    /// Whether the selected location is a folder. Not announced; read it again when the selection
    /// changes.
    Q_PROPERTY(bool isRevealableInFinder READ isRevealableInFinder)
    Q_PROPERTY(QIcon warningIcon READ warningIcon CONSTANT)
    /// The icon of database files, 32 by 32.
    Q_PROPERTY(QPixmap databaseIcon READ databaseIcon CONSTANT)
    /// Outlets. Null until the form is loaded; owned by it.
    Q_PROPERTY(NSArrayController *syncLocationsController MEMBER m_syncLocationsController)
    Q_PROPERTY(NSArrayController *databasesController MEMBER m_databasesController)
    Q_PROPERTY(QVListView *databasesView MEMBER m_databasesView)
    Q_PROPERTY(QVListView *locationsView MEMBER m_locationsView)
    Q_PROPERTY(ListScrollArea *locationsScrollView MEMBER m_locationsScrollView)
    Q_PROPERTY(QWidget *scheduleView MEMBER m_scheduleView)
    Q_PROPERTY(QPushButton *locationEditPopUpButton MEMBER m_locationEditPopUpButton)
    Q_PROPERTY(QMenu *addMenu MEMBER m_addMenu)
public:
    using StandIn = std::shared_ptr<QVStandInDatabase>;
    using Selection = std::shared_ptr<QVSynchronizationSelection>;

    /// `info` is the plug-in's information dictionary; it contains the version.
    explicit QVSyncPreferences(const QJsonObject &info = {});
    /// Deletes the view. Handlers of sheets that are still open have no effect afterwards.
    ~QVSyncPreferences() override;

    /// Returns the pane whose form was loaded last; null once any pane is destroyed. Not owned. It
    /// is one for the process, because errors that were presented outlive their pane: their next
    /// steps are taken in the pane that is shown then.
    static QVSyncPreferences *preferences();

    /// Logs if the host provides no sync plug-in. Constant.
    QString mainNibName() const override;
    /// Creates the schedule editor, fills the menus and makes this pane the result of
    /// preferences(). Called once, by loadMainView().
    void awakeFromNib() override;
    /// Builds both lists from the host's databases and locations, and starts to observe databases
    /// that open and close. Must be followed by willDeselect() before it is called again.
    /// O(databases times locations).
    void willSelect() override;
    /// Saves, presenting any error, and releases the rows of the database list. Blocks for the time
    /// of a disk write. The rows of the location list stay, and databases that open or close are
    /// not noticed until the pane is shown again.
    void willDeselect() override;

    /// Returns the version of the plug-in; empty if `info` has none.
    QString currentVersionString() const;
    QVSyncPlugin *plugin() const;
    QIcon warningIcon() const { return m_warningIcon; }
    QPixmap databaseIcon() const;
    /// Calls the host each time. Not announced.
    bool isSandboxed() const;
    bool isRevealableInFinder() const;
    /// The outlets; null until the form is loaded.
    NSArrayController *syncLocationsController() const { return m_syncLocationsController; }
    NSArrayController *databasesController() const { return m_databasesController; }
    QVListView *databasesView() const { return m_databasesView; }
    QVListView *locationsView() const { return m_locationsView; }
    QWidget *scheduleView() const { return m_scheduleView; }
    QVSyncScheduleEditor *scheduleEditor() const { return m_scheduleEditor.get(); }
    QPushButton *locationEditPopUpButton() const { return m_locationEditPopUpButton; }
    /// Returns the menu of locationEditPopUpButton(), which owns it. The form must be loaded.
    QMenu *locationEditMenu() const;

    // The database list
    /// No entry is null. Each call makes a new list of the same rows. O(n log n).
    QList<StandIn> databases() const { return localDatabases(); }
    QList<StandIn> localDatabases() const;
    /// Sorts database rows by name. Names are compared as SortDescriptor does.
    QList<SortDescriptor> databaseSortDescriptors() const;
    QList<StandIn> openDatabases() const;
    /// Returns the rows by UUID, the inbox under InboxUUID.
    const std::optional<QVStandInsByUUID> &localDatabasesByUUID() const {
        return m_localDatabasesByUUID;
    }
    /// Returns a new row for an open database, with its state at each location that has one. The
    /// row is in no list. Its UUID is InboxUUID for the inbox of the profile.
    StandIn standInForDatabase(const QVDatabase &database) const;
    /// Returns a new row for the database of `state`, which must not be null, with that state only.
    StandIn standInForSynchronizationState(const std::shared_ptr<QVSyncState> &state) const;
    /// Returns a new row, without states, for a database in a store. `database` must not be null.
    StandIn standInForAsynchronousDatabase(const std::shared_ptr<QVRemoteDatabase> &database) const;
    /// Returns the row of the database, or null if there is none. O(log n).
    StandIn localDatabaseForUUID(const QString &UUID) const;
    /// Adds a row, replacing one of the same UUID. Has no effect, except that it announces the
    /// list, while the pane is not shown.
    void addLocalDatabasesObject(const StandIn &database);
    /// Removes the row with the same UUID, if there is one, and announces the list.
    void removeLocalDatabasesObject(const StandIn &database);

    QString selectedDatabase() const override;
    void selectDatabase(const QString &UUID) override;

    // The location list
    std::shared_ptr<QVSyncLocation> selectedLocation() const override;
    void selectLocation(const std::shared_ptr<QVSyncLocation> &location) override;
    /// No entry is null.
    QList<Selection> synchronizationSelections() const { return m_synchronizationSelections; }
    Selection addedSelection() const { return m_addedSelection.lock(); }
    /// Appends a row, which must not be null, and binds it to the selected database: from now on
    /// the row follows the selection of the database list. Announces the list.
    void addSynchronizationSelectionsObject(const Selection &selection);
    /// Appends a row for `location`, which must not be null, and enables it for the selected
    /// database, if there is one. Does not save. The location is not added to the host's list here,
    /// see addSyncLocation().
    void addSelectionForLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Disables the states of the row's location and removes the row, which must not be null. Does
    /// not save, and does not remove the location from the host's list, see removeSyncSelection().
    void removeSynchronizationSelectionsObject(const Selection &selection);
    /// Returns the row of the state's location if it shows `database`; otherwise null, also for
    /// null arguments.
    Selection synchronizationSelectionForState(const std::shared_ptr<QVSyncState> &state,
                                               const StandIn &database) const;
    /// Returns the first row whose location has this URL, or null if there is none. `URL` must not
    /// be nil.
    Selection synchronizationSelectionForSyncLocationWithURL(const Url &URL) const;

    /// Commands on locations. Those for a selected location use the row that was selected last and
    /// have no effect if there is none. Sheets are attached to the window that shows the pane.
    /// Runs the editor that `makeEditor` returns for a new location, which is added when the user
    /// accepts. Has no effect if the host provides no locations.
    void addLocation(const LocationKind::EditorFactory &makeEditor);
    /// These four call addLocation() for one kind.
    Q_SLOT void addFileLocation(QObject *sender);
    Q_SLOT void addWebDAVLocation(QObject *sender);
    Q_SLOT void addDropboxLocation(QObject *sender);
    Q_SLOT void addDirectConnectionLocation(QObject *sender);
    /// Let the user create or choose a package in a panel, and then add its location and save. Run
    /// a nested event loop.
    Q_SLOT void createFolder(QObject *sender);
    Q_SLOT void selectFolder(QObject *sender);
    void addLocationOfKind(const QString &kind, Next next) override;
    /// Runs the editor of `location`, which must not be null and must have an editor: an
    /// AssertionFailure is raised otherwise.
    void editSyncLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Runs the editor of `location`, unless it has none or another sheet is open.
    bool editLocation(const std::shared_ptr<QVSyncLocation> &location) override;
    /// Runs the editor of the selected location.
    Q_SLOT void editSelectedSyncLocation(QObject *sender);
    /// Runs the editor of the row's location, if there is one. `selection` must not be null.
    Q_SLOT void editSyncSelection(const std::shared_ptr<QVSynchronizationSelection> &selection);
    /// Starts to synchronize the row's database with the locations that are ticked for it.
    /// `database` must not be null. Returns at once, and has no effect if none is ticked.
    Q_SLOT void synchronizeDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    /// Removes the row's location, and its states from every database row, without confirmation.
    /// Running jobs of the location are cancelled by the host. `selection` must not be null. Saves;
    /// if that fails, the error is presented, and the next save removes the location from the
    /// profile.
    Q_SLOT void removeSyncSelection(const std::shared_ptr<QVSynchronizationSelection> &selection);
    /// Cleans up the selected database at the selected location. Must be called only while both are
    /// selected.
    Q_SLOT void cleanSelectedSyncLocation(QObject *sender);
    /// Starts to remove superseded data of that database at `location`, and returns at once.
    /// `location` and `UUID` must not be null. The result is reported in the application's log.
    void cleanLocationForDatabaseWithUUID(const std::shared_ptr<QVSyncLocation> &location,
                                          const QString &UUID);
    /// Shows the selected location's folder in the desktop's file manager. Must be called only
    /// while isRevealableInFinder() is true. Returns at once.
    Q_SLOT void revealInFinder(QObject *sender);
    /// These two run a nested event loop until the sheet is closed.
    Q_SLOT void openBookmarkManager(QObject *sender);
    Q_SLOT void showServerPreferences(QObject *sender);
    /// Shows the sheet and returns at once. Has no effect while the sheet is shown.
    Q_SLOT void showImportDatabasesSheet(QObject *sender);
    /// Returns a new editor for the kind of the location's URL, whose scheme is compared with case;
    /// null if there is none or `location` is null.
    std::shared_ptr<QVSyncLocationEditor> locationEditorForLocation(
        const std::shared_ptr<QVSyncLocation> &location) const;
    /// Runs the editor, with a Cancel button if its location is not in the list yet. Such a
    /// location is added when the user accepts. Saves when the user accepts. `editor` must not be
    /// null; the pane keeps it until its handler is called. If the user cancels, nothing is saved,
    /// but changes that the editor has made to the location stay. Returns at once.
    void editLocationWithEditor(const std::shared_ptr<QVSyncLocationEditor> &editor);
    /// Appends `location`, which must not be null or in the list, and its row. Does not save.
    void addSyncLocation(const std::shared_ptr<QVSyncLocation> &location);

    /// Saves all locations with their states and schedules, and presents an error. What could not
    /// be saved is tried again with the next call. Blocks for the time of a disk write.
    void saveAndPresentError();
    /// Saves.
    void editorDidChangeSchedule(QVSyncScheduleEditor *editor,
                                 const QVSyncSchedulePtr &schedule) override;
    /// Saves. The row's check box has already changed the selection through its binding.
    Q_SLOT void toggleSynchronizationSelection(QObject *sender);
    /// Presents the error of a row. `error` must not be empty.
    Q_SLOT void presentSynchronizationSelectionError(const std::optional<Error> &error);

    /// Delegate functions of the lists. Returns null: every row is made from the form of its list.
    CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView *listView, const QVariant &object) override;
    /// Group rows, which are strings or null, cannot be selected; other lists than the two of the
    /// pane have no selection.
    bool collectionViewShouldSelectItem(QVListView *listView, CollectionViewItem *item) override;

    /// Dependency of the derived key, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDatabases();

Q_SIGNALS:
    /// Emitted each time the value is set or one that it depends on is announced, even if it stays
    /// equal.
    void databasesChanged();
    void localDatabasesChanged();
    void localDatabasesByUUIDChanged();
    void scheduleEditorChanged();
    void synchronizationSelectionsChanged();
    void addedSelectionChanged();

private:
    /// Creates the schedule editor, once.
    void embedScheduleEditor();
    /// Adds an entry for each kind of location (see LocationKind).
    void fillAddMenu();
    /// Replaces the rows and announces only "localDatabasesByUUID".
    void setLocalDatabasesByUUID(const std::optional<QVStandInsByUUID> &rows);
    /// Appends the entries New, Open and Save, which have no action, to the menu. Called each time
    /// the pane is shown.
    void appendLocationEditMenuItems();
    /// Returns the row of the location list that was selected last; null if none is.
    Selection selectedRow() const;
    /// Handler of the folder panels: adds the location and saves if `result` is 1.
    void addFolderLocation(const QVFolderLocationEditor &editor, qint64 result);
    /// Adds the location of an existing package and saves, or selects it if it is in the list.
    void addPackage(const Url &URL);
    /// Removes what failed at the location from its row and states: the user has just changed it,
    /// or its password.
    void forgetFailures(const QVSyncLocation &location);
    /// Shows what follows addLocationOfKind(), once, if the location was added.
    void showNext(bool isAdded);
    /// Ends what addLocationOfKind() has begun, without a location.
    void forgetNext();
    /// Ticks the location, which was added, for all databases if that is wanted.
    void tickAdded(const std::shared_ptr<QVSyncLocation> &location);
    /// Selects and announces the row that was appended last.
    void announceAddedSelection();
    /// Selects the row of the first of these databases that gets one, unless another row is
    /// selected or the pane is left before.
    void awaitImported(const QStringList &UUIDs);
    /// Selects the row of this database if it is awaited.
    void selectImported(const QString &UUID);
    void forgetImportedIfAnotherIsSelected();
    /// Handler of the editors' sheets.
    void didEditLocation(const std::shared_ptr<QVSyncLocationEditor> &editor, bool isNew,
                         qint64 result);
    /// Add the row of a database that was opened, and remove that of one that was closed.
    void didOpenDatabase(const Notification &notification);
    void didCloseDatabase(const Notification &notification);

    /// The outlets: null until the form is loaded, and after it is deleted.
    QPointer<NSArrayController> m_syncLocationsController;
    QPointer<NSArrayController> m_databasesController;
    QPointer<QVListView> m_databasesView;
    QPointer<QVListView> m_locationsView;
    QPointer<ListScrollArea> m_locationsScrollView;
    QPointer<QWidget> m_scheduleView;
    /// Guards the creation of the schedule editor.
    QMutex m_awakening;
    QIcon m_warningIcon;
    /// Cached; null until it is read for the first time.
    mutable QPixmap m_databaseIcon;
    std::unique_ptr<QVSyncScheduleEditor> m_scheduleEditor;
    QList<Selection> m_synchronizationSelections;
    std::weak_ptr<QVSynchronizationSelection> m_addedSelection;
    std::optional<QVStandInsByUUID> m_localDatabasesByUUID;
    QPointer<QPushButton> m_locationEditPopUpButton;
    QPointer<QMenu> m_addMenu;
    /// What follows when the location of addLocationOfKind() is added.
    Next m_next = Next::Nothing;
    /// Whether the location that is being added is ticked for every database.
    bool m_ticksAll = false;
    /// The editors that are running.
    QList<std::shared_ptr<QVSyncLocationEditor>> m_editors;
    /// Null while its sheet is closed.
    std::shared_ptr<QVImportDatabasesController> m_importController;
    /// The databases that were imported last and have no row yet, and the one that was selected
    /// then.
    QStringList m_importedUUIDs;
    QString m_selectedAtImport;
};
