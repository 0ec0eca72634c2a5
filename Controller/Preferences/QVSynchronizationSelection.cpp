#include "Controller/Preferences/QVSynchronizationSelection.h"

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include "Controller/Preferences/LocationKind.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/DispatchGroup.h"
#include "Platform/KeyValue/Binding.h"

std::shared_ptr<QVSynchronizationSelection> QVSynchronizationSelection::selectionWithDatabase(
    const std::shared_ptr<QVStandInDatabase> &database,
    const std::shared_ptr<QVSyncLocation> &location) {
    requireParameter(location != nullptr, "location != nil",
                     "QVSynchronizationSelection::selectionWithDatabase",
                     "Controller/Preferences/QVSynchronizationSelection", 21);
    return std::shared_ptr<QVSynchronizationSelection>(
        new QVSynchronizationSelection(database, location));
}

QVSynchronizationSelection::QVSynchronizationSelection(
    const std::shared_ptr<QVStandInDatabase> &database,
    const std::shared_ptr<QVSyncLocation> &location)
    : m_database(database), m_location(location) {
    KeyValue::followDependencies(this);
}

QVSynchronizationSelection::~QVSynchronizationSelection() {
    KeyValue::unbind(this, "selectedDatabases");
}

void QVSynchronizationSelection::setDatabase(const std::shared_ptr<QVStandInDatabase> &database) {
    m_database = database;
    KeyValue::announce<&QVSynchronizationSelection::databaseChanged>(this);
}

void QVSynchronizationSelection::setLocation(const std::shared_ptr<QVSyncLocation> &location) {
    m_location = location;
    KeyValue::announce<&QVSynchronizationSelection::locationChanged>(this);
}

std::unique_ptr<QVSyncLocationFormatter> QVSynchronizationSelection::locationFormatter() const {
    return QVSyncLocationFormatter::formatterForLocationWithURL(m_location->URL());
}

QPixmap QVSynchronizationSelection::icon() const {
    if (m_location->URL().isNil()) {
        return QApplication::windowIcon().pixmap(32);
    }
    return isMounted() ? locationFormatter()->icon() : dimmedIcon();
}

QPixmap QVSynchronizationSelection::dimmedIcon() const {
    const QPixmap icon = locationFormatter()->icon();
    QPixmap dimmed(icon.size());
    dimmed.setDevicePixelRatio(icon.devicePixelRatio());
    dimmed.fill(Qt::transparent);
    QPainter painter(&dimmed);
    painter.setOpacity(0.5);
    painter.drawPixmap(0, 0, icon);
    return dimmed;
}

QString QVSynchronizationSelection::title() const {
    const QString title = locationFormatter()->title();
    return isMounted() ? title
                       : QStringLiteral("%1 (%2)").arg(title, localizedSyncString("Unavailable"));
}

QString QVSynchronizationSelection::locationType() const {
    return locationFormatter()->locationType();
}

void QVSynchronizationSelection::setError(const std::optional<Error> &error) {
    m_error = error;
    KeyValue::announce<&QVSynchronizationSelection::errorChanged>(this);
}

void QVSynchronizationSelection::setActive(bool active) {
    m_isActive = active;
    KeyValue::announce<&QVSynchronizationSelection::activeChanged>(this);
}

std::shared_ptr<QVSyncState> QVSynchronizationSelection::state() const {
    return m_location->stateForDatabaseWithUUID(m_database ? m_database->UUID() : QString());
}

bool QVSynchronizationSelection::isSelected() const {
    const auto current = state();
    return current && current->isEnabled();
}

void QVSynchronizationSelection::setSelected(bool selected) {
    if (m_database) {
        auto current = state();
        if (selected && !current) {
            current = addState();
        }
        if (current) {
            current->setEnabled(selected);
        }
    }
    KeyValue::announce<&QVSynchronizationSelection::selectedChanged>(this);
}

std::shared_ptr<QVSyncState> QVSynchronizationSelection::addState() {
    auto added = m_location->addStateForDatabaseWithUUID(m_database->UUID(), m_database->name());
    added->setSyncOnOpen(m_database->syncOnOpen());
    added->setSyncOnClose(m_database->syncOnClose());
    added->setSchedule(m_database->schedule());
    m_database->addSynchronizationStatesObject(added);
    return added;
}

bool QVSynchronizationSelection::isSelectable() const {
    return m_database && (m_database->existsLocally() || m_database->existsInLocation(m_location));
}

bool QVSynchronizationSelection::isCleanable() const {
    return LocationKind::isCleanableType(locationType());
}

bool QVSynchronizationSelection::isEditable() const {
    return LocationKind::ofURL(m_location->URL()) != nullptr;
}

bool QVSynchronizationSelection::canCleanUp() const {
    return isCleanable() && isSelected();
}

bool QVSynchronizationSelection::isMounted() const {
    const Url URL = m_location->URL();
    const bool isMounted =
        !URL.isFileURL() || QVSyncPlugin::plugin()->isVolumeMountedAtPath(URL.path());
    syncLog().verbose(QStringLiteral("Location: %1 (%2) %3 mounted.")
                          .arg(URL.stringWithoutPassword(), URL.path(),
                               isMounted ? QStringLiteral("is") : QStringLiteral("is not")));
    return isMounted;
}

QColor QVSynchronizationSelection::textColor() const {
    return QColor::fromRgbF(0, 0, 0, isMounted() ? 1.0F : 0.5F);
}

QVariantList QVSynchronizationSelection::selectedDatabases() const {
    return m_database ? QVariantList{QVariant::fromValue(m_database)} : QVariantList();
}

void QVSynchronizationSelection::setSelectedDatabases(const QVariantList &databases) {
    setDatabase(databases.isEmpty() ? nullptr
                                    : databases.last().value<std::shared_ptr<QVStandInDatabase>>());
    KeyValue::announce<&QVSynchronizationSelection::selectedDatabasesChanged>(this);
}

/// One fetch, shared by the handlers of its steps. The store calls them on worker threads; what the
/// row shows is changed on the main queue.
class QVSynchronizationSelection::Fetch : public std::enable_shared_from_this<Fetch> {
public:
    explicit Fetch(std::shared_ptr<QVSynchronizationSelection> row)
        : m_row(std::move(row)), m_store(m_row->location()->createStore()) {}

    void start(QVSyncStore::DatabasesHandler handler) {
        m_group.dispatchAsync([row = m_row] { row->setActive(true); });
        open();
        m_group.notify([fetch = shared_from_this(), handler = std::move(handler)] {
            fetch->m_row->setActive(false);
            handler(fetch->m_databases, fetch->m_row->error());
        });
    }

private:
    void open() {
        m_group.enter();
        m_store->openWithCompletionHandler(
            [fetch = shared_from_this()](const std::optional<Error> &error) {
                if (error) {
                    fetch->report(*error);
                } else {
                    fetch->fetchDatabases();
                }
                fetch->m_group.leave();
            });
    }

    void fetchDatabases() {
        m_group.enter();
        m_store->fetchDatabasesWithCompletionHandler(
            [fetch = shared_from_this()](const std::optional<QVRemoteDatabases> &databases,
                                         const std::optional<Error> &error) {
                if (error) {
                    fetch->report(*error);
                } else {
                    fetch->m_databases = databases;
                }
                fetch->close();
                fetch->m_group.leave();
            });
    }

    void close() {
        m_group.enter();
        m_store->closeWithCompletionHandler(
            [fetch = shared_from_this()](const std::optional<Error> &error) {
                if (error) {
                    fetch->report(*error);
                }
                fetch->m_group.leave();
            });
    }

    void report(const Error &error) {
        m_group.dispatchAsync([row = m_row, error] { row->setError(error); });
    }

    const std::shared_ptr<QVSynchronizationSelection> m_row;
    const std::shared_ptr<QVSyncStore> m_store;
    const DispatchGroup m_group;
    /// Written only by the handler of the fetch; read when the group is empty.
    std::optional<QVRemoteDatabases> m_databases;
};

void QVSynchronizationSelection::fetchDatabasesWithCompletionHandler(
    QVSyncStore::DatabasesHandler handler) {
    std::make_shared<Fetch>(shared_from_this())->start(std::move(handler));
}

KeyValue::KeyPaths QVSynchronizationSelection::keyPathsForValuesAffectingSelected() {
    return {"database", "location", "location.synchronizationStates"};
}

KeyValue::KeyPaths QVSynchronizationSelection::keyPathsForValuesAffectingEditable() {
    return {"location", "location.URL"};
}

KeyValue::KeyPaths QVSynchronizationSelection::keyPathsForValuesAffectingSelectable() {
    return {"database"};
}
