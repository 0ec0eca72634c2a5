#pragma once

#include <QtCore/QMutex>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <map>
#include <memory>

#include "Controller/NSArrayController+Emptiness.h"
#include "Controller/Preferences/QVStandInDatabase.h"
#include "Controller/Preferences/QVSyncScheduleEditor.h"
#include "Controller/Preferences/QVSyncScheduleEditorDelegate.h"
#include "Controller/Preferences/QVSynchronizationSelection.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Interface/PreferencePane.h"
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
/// Main thread. It owns its rows and the schedule editor; databases, locations and states are the
/// sync plug-in's. Assertion failures are raised for absent arguments; errors of saving are
/// presented.
class QVSyncPreferences : public PreferencePane,
                          public QVListViewDelegate,
                          public QVSyncScheduleEditorDelegate {
    Q_OBJECT
    Q_PROPERTY(QString currentVersionString READ currentVersionString CONSTANT)
    Q_PROPERTY(QVSyncPlugin *plugin READ plugin CONSTANT)
    Q_PROPERTY(
        QList<std::shared_ptr<QVStandInDatabase>> databases READ databases NOTIFY databasesChanged)
    /// The rows of the open databases and the inbox, by name. Empty while the pane is not shown.
    Q_PROPERTY(QList<std::shared_ptr<QVStandInDatabase>> localDatabases READ localDatabases NOTIFY
                   localDatabasesChanged)
    /// Fresh rows for the databases that are open now, in the host's order.
    Q_PROPERTY(QList<std::shared_ptr<QVStandInDatabase>> openDatabases READ openDatabases)
    /// The rows by UUID. Empty optional before the first showing and after the pane was left.
    Q_PROPERTY(std::optional<QVStandInsByUUID> localDatabasesByUUID READ localDatabasesByUUID NOTIFY
                   localDatabasesByUUIDChanged)
    /// Null before `awakeFromNib`. Owned by the pane.
    Q_PROPERTY(
        QVSyncScheduleEditor *scheduleEditor READ scheduleEditor NOTIFY scheduleEditorChanged)
    /// One row more for each location at each showing of the pane.
    Q_PROPERTY(QList<std::shared_ptr<QVSynchronizationSelection>> synchronizationSelections READ
                   synchronizationSelections NOTIFY synchronizationSelectionsChanged)
    Q_PROPERTY(bool sandboxed READ isSandboxed)
    /// Whether the selected location is a folder. Read it again to learn of a change.
    Q_PROPERTY(bool isRevealableInFinder READ isRevealableInFinder)
    Q_PROPERTY(QIcon warningIcon READ warningIcon CONSTANT)
    /// The icon of database files, 32 by 32.
    Q_PROPERTY(QPixmap databaseIcon READ databaseIcon CONSTANT)
    // Outlets
    Q_PROPERTY(NSArrayController *syncLocationsController MEMBER m_syncLocationsController)
    Q_PROPERTY(NSArrayController *databasesController MEMBER m_databasesController)
    Q_PROPERTY(QVListView *databasesView MEMBER m_databasesView)
    Q_PROPERTY(QVListView *locationsView MEMBER m_locationsView)
    Q_PROPERTY(QWidget *scheduleView MEMBER m_scheduleView)
    Q_PROPERTY(QPushButton *locationEditPopUpButton MEMBER m_locationEditPopUpButton)
    Q_PROPERTY(QMenu *addMenu MEMBER m_addMenu)
public:
    using StandIn = std::shared_ptr<QVStandInDatabase>;
    using Selection = std::shared_ptr<QVSynchronizationSelection>;

    explicit QVSyncPreferences(const QJsonObject &info = {});
    ~QVSyncPreferences() override;

    /// The pane that was awakened last; nullptr once a pane is gone.
    static QVSyncPreferences *preferences();

    QString mainNibName() const override;
    void awakeFromNib() override;
    void willSelect() override;
    void willDeselect() override;

    QString currentVersionString() const;
    QVSyncPlugin *plugin() const;
    QIcon warningIcon() const { return m_warningIcon; }
    QPixmap databaseIcon() const;
    bool isSandboxed() const;
    bool isRevealableInFinder() const;
    NSArrayController *syncLocationsController() const { return m_syncLocationsController; }
    NSArrayController *databasesController() const { return m_databasesController; }
    QVListView *databasesView() const { return m_databasesView; }
    QVListView *locationsView() const { return m_locationsView; }
    QWidget *scheduleView() const { return m_scheduleView; }
    QVSyncScheduleEditor *scheduleEditor() const { return m_scheduleEditor.get(); }
    QPushButton *locationEditPopUpButton() const { return m_locationEditPopUpButton; }
    QMenu *locationEditMenu() const;

    // The database list
    QList<StandIn> databases() const { return localDatabases(); }
    QList<StandIn> localDatabases() const;
    QList<SortDescriptor> databaseSortDescriptors() const;
    QList<StandIn> openDatabases() const;
    /// The rows by UUID, the inbox under "@inbox".
    const std::optional<QVStandInsByUUID> &localDatabasesByUUID() const {
        return m_localDatabasesByUUID;
    }
    /// A new row for an open database, with its state at each location that has one.
    StandIn standInForDatabase(const QVDatabase &database) const;
    /// A new row for the database of a state, with that state alone.
    StandIn standInForSynchronizationState(const std::shared_ptr<QVSyncState> &state) const;
    /// A new row, without states, for a database that a store holds.
    StandIn standInForAsynchronousDatabase(const std::shared_ptr<QVRemoteDatabase> &database) const;
    /// nullptr where there is none.
    StandIn localDatabaseForUUID(const QString &UUID) const;
    void addLocalDatabasesObject(const StandIn &database);
    void removeLocalDatabasesObject(const StandIn &database);

    // The location list
    QList<Selection> synchronizationSelections() const { return m_synchronizationSelections; }
    void addSynchronizationSelectionsObject(const Selection &selection);
    /// Adds a row and, where a database is selected, switches it on for that database.
    void addSelectionForLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Disables the location's states and drops its row.
    void removeSynchronizationSelectionsObject(const Selection &selection);
    /// nullptr where there is none.
    Selection synchronizationSelectionForState(const std::shared_ptr<QVSyncState> &state,
                                               const StandIn &database) const;
    Selection synchronizationSelectionForSyncLocationWithURL(const Url &URL) const;

    // The commands on locations. They work on the last selected row; their sheets belong to the
    // window that shows the pane.
    Q_SLOT void addFileLocation(QObject *sender);
    Q_SLOT void addWebDAVLocation(QObject *sender);
    Q_SLOT void addDropboxLocation(QObject *sender);
    Q_SLOT void addDirectConnectionLocation(QObject *sender);
    /// Make a new package for a location, or choose an existing one, in a panel; then add it.
    Q_SLOT void createFolder(QObject *sender);
    Q_SLOT void selectFolder(QObject *sender);
    void editSyncLocation(const std::shared_ptr<QVSyncLocation> &location);
    Q_SLOT void editSelectedSyncLocation(QObject *sender);
    /// Opens the editor of the row's location if there is one.
    Q_SLOT void editSyncSelection(const std::shared_ptr<QVSynchronizationSelection> &selection);
    /// Starts to synchronize the row's database with all its locations if it can.
    Q_SLOT void synchronizeDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    /// Removes the row's location, and its states from every database row, without asking. Saves.
    Q_SLOT void removeSyncSelection(const std::shared_ptr<QVSynchronizationSelection> &selection);
    /// Reads which databases the location of the selected row holds; the row shows the activity
    /// and, in the end, an error.
    Q_SLOT void checkSelectedSyncLocation(QObject *sender);
    /// To be sent only while a row is selected.
    Q_SLOT void cleanSelectedSyncLocation(QObject *sender);
    /// Starts the clean-up of that database's store at the location, and returns at once.
    void cleanLocationForDatabaseWithUUID(const std::shared_ptr<QVSyncLocation> &location,
                                          const QString &UUID);
    /// Shows the selected row's folder in the desktop's file manager.
    Q_SLOT void revealInFinder(QObject *sender);
    Q_SLOT void openBookmarkManager(QObject *sender);
    Q_SLOT void showServerPreferences(QObject *sender);
    Q_SLOT void showImportDatabasesSheet(QObject *sender);
    /// A new editor for the location by the scheme of its URL, letter by letter; nullptr where
    /// there is none.
    std::shared_ptr<QVSyncLocationEditor> locationEditorForLocation(
        const std::shared_ptr<QVSyncLocation> &location) const;
    /// Runs the editor, with a Cancel button for a location that is not in the list yet. When it
    /// was accepted such a location is added; saves in any case.
    void editLocationWithEditor(const std::shared_ptr<QVSyncLocationEditor> &editor);
    /// Appends the location and its row.
    void addSyncLocation(const std::shared_ptr<QVSyncLocation> &location);

    // Saving and errors
    void saveAndPresentError();
    void editorDidChangeSchedule(QVSyncScheduleEditor *editor,
                                 const QVSyncSchedulePtr &schedule) override;
    Q_SLOT void toggleSynchronizationSelection(QObject *sender);
    Q_SLOT void presentSynchronizationSelectionError(const std::optional<Error> &error);

    // The lists' delegate
    CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView *listView, const QVariant &object) override;
    bool collectionViewShouldSelectItem(QVListView *listView, CollectionViewItem *item) override;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingDatabases();

Q_SIGNALS:
    void databasesChanged();
    void localDatabasesChanged();
    void localDatabasesByUUIDChanged();
    void scheduleEditorChanged();
    void synchronizationSelectionsChanged();

private:
    void embedScheduleEditor();
    void fillAddMenu();
    void setLocalDatabasesByUUID(const std::optional<QVStandInsByUUID> &rows);
    void appendLocationEditMenuItems();
    Selection selectedRow() const;
    void addFolderLocation(const QVFolderLocationEditor &editor, qint64 result);
    void didEditLocation(const std::shared_ptr<QVSyncLocationEditor> &editor, bool isNew,
                         qint64 result);
    void didOpenDatabase(const Notification &notification);
    void didCloseDatabase(const Notification &notification);

    QPointer<NSArrayController> m_syncLocationsController;
    QPointer<NSArrayController> m_databasesController;
    QPointer<QVListView> m_databasesView;
    QPointer<QVListView> m_locationsView;
    QPointer<QWidget> m_scheduleView;
    QMutex m_awakening;
    QIcon m_warningIcon;
    mutable QPixmap m_databaseIcon;
    std::unique_ptr<QVSyncScheduleEditor> m_scheduleEditor;
    QList<Selection> m_synchronizationSelections;
    std::optional<QVStandInsByUUID> m_localDatabasesByUUID;
    QPointer<QPushButton> m_locationEditPopUpButton;
    QPointer<QMenu> m_addMenu;
    QList<std::shared_ptr<QVSyncLocationEditor>> m_editors;
    std::shared_ptr<QVImportDatabasesController> m_importController;
};
