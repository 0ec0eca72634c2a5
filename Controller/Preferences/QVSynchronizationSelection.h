#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantList>
#include <QtGui/QColor>
#include <QtGui/QPixmap>
#include <memory>
#include <optional>

#include "Controller/Preferences/QVStandInDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncStore.h"
#include "Platform/Foundation/Error.h"
#include "Platform/KeyValue/KeyValue.h"

/// One row of the location list: a sync location with respect to the selected database. Shares
/// ownership of both. Must be used on the main thread. Keys without a NOTIFY signal are read when
/// the list makes the row's view.
class QVSynchronizationSelection : public QObject,
                                   public std::enable_shared_from_this<QVSynchronizationSelection> {
    Q_OBJECT
    /// The selected database; null if there is none.
    Q_PROPERTY(std::shared_ptr<QVStandInDatabase> database READ database WRITE setDatabase NOTIFY
                   databaseChanged)
    /// Never null.
    Q_PROPERTY(std::shared_ptr<QVSyncLocation> location READ location WRITE setLocation NOTIFY
                   locationChanged)
    /// The location's icon, dimmed if it is not mounted.
    Q_PROPERTY(QPixmap icon READ icon)
    /// The location's icon at half its opacity.
    Q_PROPERTY(QPixmap dimmedIcon READ dimmedIcon)
    /// The location's title, with a note if it is not mounted.
    Q_PROPERTY(QString title READ title)
    /// The localized name of the kind of location.
    Q_PROPERTY(QString locationType READ locationType)
    /// The last error of a fetch. A later fetch does not clear it.
    Q_PROPERTY(std::optional<Error> error READ error WRITE setError NOTIFY errorChanged)
    /// Whether a fetch is running.
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)
    /// Whether the database synchronizes with the location. Setting it to true adds the state if
    /// needed and enables it; false disables it. Only announces if there is no database. Does not
    /// save.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
    /// Whether the user may change `selected`: if the database exists on this computer or at this
    /// location.
    Q_PROPERTY(bool selectable READ isSelectable NOTIFY selectableChanged)
    /// Whether this kind of location can be cleaned up.
    Q_PROPERTY(bool cleanable READ isCleanable)
    /// Whether there is an editor for the location's URL.
    Q_PROPERTY(bool editable READ isEditable NOTIFY editableChanged)
    /// Whether the database synchronizes with the location and the location can be cleaned up.
    Q_PROPERTY(bool canCleanUp READ canCleanUp)
    /// Whether the volume of a folder location is mounted; true for all other kinds.
    Q_PROPERTY(bool mounted READ isMounted)
    /// Black, at half opacity if the location is not mounted.
    Q_PROPERTY(QColor textColor READ textColor)
    /// For binding: a list of the database, or an empty list. Setting it selects the last database
    /// of the list, or none.
    Q_PROPERTY(QVariantList selectedDatabases READ selectedDatabases WRITE setSelectedDatabases
                   NOTIFY selectedDatabasesChanged)
public:
    /// Returns a new row; never null. `database` may be null. Raises an AssertionFailure if
    /// `location` is null. The row is in no list and not bound; see
    /// QVSyncPreferences::addSynchronizationSelectionsObject().
    static std::shared_ptr<QVSynchronizationSelection> selectionWithDatabase(
        const std::shared_ptr<QVStandInDatabase> &database,
        const std::shared_ptr<QVSyncLocation> &location);
    /// Ends the binding of "selectedDatabases".
    ~QVSynchronizationSelection() override;

    std::shared_ptr<QVStandInDatabase> database() const { return m_database; }
    /// Null selects none. Announces the keys that depend on it as well; the states of both
    /// databases stay as they are.
    void setDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    std::shared_ptr<QVSyncLocation> location() const { return m_location; }
    /// `location` must not be null. The row's error stays.
    void setLocation(const std::shared_ptr<QVSyncLocation> &location);
    /// Icons and titles are computed at each call, from the location's current URL. For a nil URL,
    /// the icon is that of the application.
    QPixmap icon() const;
    QPixmap dimmedIcon() const;
    QString title() const;
    QString locationType() const;
    std::optional<Error> error() const { return m_error; }
    /// Set by a fetch, and with an empty value by the code that starts one or learns that the error
    /// is gone.
    void setError(const std::optional<Error> &error);
    /// False as soon as one of several fetches has ended.
    bool isActive() const { return m_isActive; }
    void setActive(bool active);
    /// Reads the state at each call, so it is right even if another object has changed the state.
    /// An observer of this key is not notified of that, but of a state that is added to the
    /// location.
    bool isSelected() const;
    /// A state that is added receives the triggers and the schedule of the database's row, and is
    /// added to that row. A state that was disabled keeps its own schedule when it is enabled
    /// again. Announces the key in every case.
    void setSelected(bool selected);
    bool isSelectable() const;
    /// Compares the name of the kind that the host's formatter returns, see
    /// LocationKind::isCleanableType().
    bool isCleanable() const;
    bool isEditable() const;
    bool canCleanUp() const;
    /// Calls the host each time, which does not block, see QVSyncPlugin::isVolumeMountedAtPath().
    /// Not announced.
    bool isMounted() const;
    QColor textColor() const;
    /// The one entry holds a std::shared_ptr<QVStandInDatabase>.
    QVariantList selectedDatabases() const;
    /// Announces "database" before "selectedDatabases". The pane binds this key to the selection of
    /// the database list.
    void setSelectedDatabases(const QVariantList &databases);

    /// Returns a new formatter for the location's current URL, owned by the caller. Never null.
    std::unique_ptr<QVSyncLocationFormatter> locationFormatter() const;

    /// Opens the location's store, reads which databases it contains, and closes it, on worker
    /// threads; returns at once. `handler`, which must not be empty, is called once, on the main
    /// thread, with the databases, if the fetch succeeded, and with `error` as it is then, which
    /// may come from an earlier fetch. The row is kept alive until then. Cannot be cancelled; its
    /// duration is limited only by the deadlines of the store. Databases that were read beside an
    /// error are not passed on. `active` becomes true from the event loop, not within this call,
    /// and false right before `handler` is called.
    void fetchDatabasesWithCompletionHandler(QVSyncStore::DatabasesHandler handler);

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSelected();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSelectable();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingEditable();

Q_SIGNALS:
    /// Emitted each time the value is set or one that it depends on is announced, even if it stays
    /// equal.
    void databaseChanged();
    void locationChanged();
    void errorChanged();
    void activeChanged();
    void selectedChanged();
    void selectableChanged();
    void editableChanged();
    void selectedDatabasesChanged();

private:
    /// One running fetch.
    class Fetch;

    QVSynchronizationSelection(const std::shared_ptr<QVStandInDatabase> &database,
                               const std::shared_ptr<QVSyncLocation> &location);
    /// Returns the database's state at the location; null if there is none.
    std::shared_ptr<QVSyncState> state() const;
    /// Adds a state with the settings of the database's row. Never null. There must be a database.
    std::shared_ptr<QVSyncState> addState();

    /// Null if no database is selected.
    std::shared_ptr<QVStandInDatabase> m_database;
    std::shared_ptr<QVSyncLocation> m_location;
    std::optional<Error> m_error;
    bool m_isActive = false;
};
