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

/// One row of the location list: a sync location as seen from the database that is selected beside
/// it. Shares both. Main thread. The keys without a notification are read when the list makes a
/// row.
class QVSynchronizationSelection : public QObject,
                                   public std::enable_shared_from_this<QVSynchronizationSelection> {
    Q_OBJECT
    /// The database the row speaks for; nullptr: none.
    Q_PROPERTY(std::shared_ptr<QVStandInDatabase> database READ database WRITE setDatabase NOTIFY
                   databaseChanged)
    /// Never nullptr.
    Q_PROPERTY(std::shared_ptr<QVSyncLocation> location READ location WRITE setLocation NOTIFY
                   locationChanged)
    Q_PROPERTY(QPixmap icon READ icon)
    /// The location's icon at half its opacity.
    Q_PROPERTY(QPixmap dimmedIcon READ dimmedIcon)
    Q_PROPERTY(QString title READ title)
    Q_PROPERTY(QString locationType READ locationType)
    /// The last error of a fetch; a later fetch does not clear it.
    Q_PROPERTY(std::optional<Error> error READ error WRITE setError NOTIFY errorChanged)
    /// Whether a fetch is under way.
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)
    /// Whether the database synchronizes with the location. Setting it makes the state or enables
    /// it, or disables it; without a database it does nothing. Saving is the caller's affair.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
    /// Whether `selected` may be changed: not for a database that exists only elsewhere.
    Q_PROPERTY(bool selectable READ isSelectable NOTIFY selectableChanged)
    /// Whether the location is of a kind that can be cleaned up.
    Q_PROPERTY(bool cleanable READ isCleanable)
    /// Whether there is an editor for the location's URL.
    Q_PROPERTY(bool editable READ isEditable NOTIFY editableChanged)
    /// Whether the database synchronizes with the location and the location can be cleaned up.
    Q_PROPERTY(bool canCleanUp READ canCleanUp)
    Q_PROPERTY(bool mounted READ isMounted)
    /// Black, half transparent where the location is not mounted.
    Q_PROPERTY(QColor textColor READ textColor)
    /// For binding: the database alone or nothing; the last one set becomes the database.
    Q_PROPERTY(QVariantList selectedDatabases READ selectedDatabases WRITE setSelectedDatabases
                   NOTIFY selectedDatabasesChanged)
public:
    static std::shared_ptr<QVSynchronizationSelection> selectionWithDatabase(
        const std::shared_ptr<QVStandInDatabase> &database,
        const std::shared_ptr<QVSyncLocation> &location);
    ~QVSynchronizationSelection() override;

    std::shared_ptr<QVStandInDatabase> database() const { return m_database; }
    void setDatabase(const std::shared_ptr<QVStandInDatabase> &database);
    std::shared_ptr<QVSyncLocation> location() const { return m_location; }
    void setLocation(const std::shared_ptr<QVSyncLocation> &location);
    QPixmap icon() const;
    QPixmap dimmedIcon() const;
    QString title() const;
    QString locationType() const;
    std::optional<Error> error() const { return m_error; }
    void setError(const std::optional<Error> &error);
    bool isActive() const { return m_isActive; }
    void setActive(bool active);
    bool isSelected() const;
    void setSelected(bool selected);
    bool isSelectable() const;
    bool isCleanable() const;
    bool isEditable() const;
    bool canCleanUp() const;
    bool isMounted() const;
    QColor textColor() const;
    QVariantList selectedDatabases() const;
    void setSelectedDatabases(const QVariantList &databases);

    /// A new one at each call.
    std::unique_ptr<QVSyncLocationFormatter> locationFormatter() const;

    /// Opens the location's store, reads which databases it holds, and closes it. `handler` is
    /// called once, on the main thread, with the databases, if there are any, and `error` as it
    /// stands then, which may be an older one. The row lives until then.
    void fetchDatabasesWithCompletionHandler(QVSyncStore::DatabasesHandler handler);

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSelected();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSelectable();
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingEditable();

Q_SIGNALS:
    void databaseChanged();
    void locationChanged();
    void errorChanged();
    void activeChanged();
    void selectedChanged();
    void selectableChanged();
    void editableChanged();
    void selectedDatabasesChanged();

private:
    class Fetch;

    QVSynchronizationSelection(const std::shared_ptr<QVStandInDatabase> &database,
                               const std::shared_ptr<QVSyncLocation> &location);
    std::shared_ptr<QVSyncState> state() const;
    std::shared_ptr<QVSyncState> addState();

    std::shared_ptr<QVStandInDatabase> m_database;
    std::shared_ptr<QVSyncLocation> m_location;
    std::optional<Error> m_error;
    bool m_isActive = false;
};
