#include "Controller/Preferences/QVStandInDatabase.h"

#include <algorithm>

#include "Host/Notifications.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncStore.h"
#include "Host/SyncLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/NotificationCenter.h"

namespace {
/// Returns the later date; an invalid date is earlier than any other.
QDateTime later(const QDateTime &left, const QDateTime &right) {
    if (!left.isValid() || !right.isValid()) {
        return left.isValid() ? left : right;
    }
    return std::max(left, right);
}

QString descriptionOf(const QObject *object) {
    return object ? QStringLiteral("<%1: 0x%2>")
                        .arg(QLatin1StringView(object->metaObject()->className()))
                        .arg(reinterpret_cast<quintptr>(object), 0, 16)
                  : QStringLiteral("(null)");
}

}  // namespace

QVStandInDatabase::QVStandInDatabase() {
    NotificationCenter::defaultCenter().addObserver(
        this, QVDatabaseRenamedNotification, [this](const Notification &notification) {
            didReceiveDatabaseRenamedNotification(notification);
        });
}

QVStandInDatabase::~QVStandInDatabase() = default;

void QVStandInDatabase::setUUID(const QString &UUID) {
    m_UUID = UUID;
    KeyValue::announce<&QVStandInDatabase::UUIDChanged>(this);
}

void QVStandInDatabase::setName(const QString &name) {
    m_name = name;
    KeyValue::announce<&QVStandInDatabase::nameChanged>(this);
}

QString QVStandInDatabase::localizedSyncButtonTitle() const {
    return localizedSyncString("Sync Now");
}

void QVStandInDatabase::setCanSynchronize(bool canSynchronize) {
    m_canSynchronize = canSynchronize;
    KeyValue::announce<&QVStandInDatabase::canSynchronizeChanged>(this);
}

void QVStandInDatabase::setDateOfLastSynchronization(const QDateTime &date) {
    m_dateOfLastSynchronization = date;
    KeyValue::announce<&QVStandInDatabase::dateOfLastSynchronizationChanged>(this);
}

std::shared_ptr<QVSyncState> QVStandInDatabase::anyState() const {
    return m_states.isEmpty() ? nullptr : m_states.first();
}

QVSyncSchedulePtr QVStandInDatabase::schedule() const {
    const auto state = anyState();
    return state ? state->schedule() : nullptr;
}

void QVStandInDatabase::setSchedule(const QVSyncSchedulePtr &schedule) {
    for (const auto &state : QVSyncStates(m_states)) {
        state->setSchedule(schedule);
    }
    KeyValue::announce<&QVStandInDatabase::scheduleChanged>(this);
}

bool QVStandInDatabase::syncOnOpen() const {
    const auto state = anyState();
    return state && state->syncOnOpen();
}

void QVStandInDatabase::setSyncOnOpen(bool syncOnOpen) {
    for (const auto &state : QVSyncStates(m_states)) {
        state->setSyncOnOpen(syncOnOpen);
    }
    KeyValue::announce<&QVStandInDatabase::syncOnOpenChanged>(this);
}

bool QVStandInDatabase::syncOnClose() const {
    const auto state = anyState();
    return state && state->syncOnClose();
}

void QVStandInDatabase::setSyncOnClose(bool syncOnClose) {
    for (const auto &state : QVSyncStates(m_states)) {
        state->setSyncOnClose(syncOnClose);
    }
    KeyValue::announce<&QVStandInDatabase::syncOnCloseChanged>(this);
}

bool QVStandInDatabase::existsLocally() const {
    return existsInLocation(QVSyncPlugin::plugin()->localStore()->location());
}

void QVStandInDatabase::addSynchronizationStatesObject(const std::shared_ptr<QVSyncState> &state) {
    insertState(state);
    statesWereAdded(syncLog().isVerbose());
}

void QVStandInDatabase::addSynchronizationStates(const QVSyncStates &states) {
    const bool isVerbose = syncLog().isVerbose();
    for (const auto &state : states) {
        insertState(state);
        // Each update is logged.
        if (isVerbose || state == states.constLast()) {
            statesWereAdded(isVerbose);
        }
    }
}

void QVStandInDatabase::insertState(const std::shared_ptr<QVSyncState> &state) {
    if (const QVSyncSchedulePtr rowSchedule = schedule()) {
        state->setSchedule(rowSchedule);
    }
    if (m_members.contains(state.get())) {
        ++m_furtherObservations[state.get()];
    } else {
        m_members.insert(state.get());
        m_states.append(state);
    }
    observe(*state);
}

void QVStandInDatabase::observe(const QVSyncState &state) {
    connect(&state, &QVSyncState::lastSyncedChanged, this,
            &QVStandInDatabase::updateDateOfLastSynchronization, Qt::DirectConnection);
    connect(&state, &QVSyncState::enabledChanged, this,
            qOverload<>(&QVStandInDatabase::updateCanSynchronize), Qt::DirectConnection);
}

void QVStandInDatabase::statesWereAdded(bool isVerbose) {
    updateDateOfLastSynchronization();
    updateCanSynchronize(isVerbose);
    KeyValue::announce<&QVStandInDatabase::synchronizationStatesChanged>(this);
}

void QVStandInDatabase::removeSynchronizationStatesObject(
    const std::shared_ptr<QVSyncState> &state) {
    if (m_members.remove(state.get())) {
        m_states.removeOne(state);
        disconnect(state.get(), nullptr, this, nullptr);
        for (int i = 0; i < m_furtherObservations.value(state.get()); ++i) {
            observe(*state);
        }
    }
    updateDateOfLastSynchronization();
    KeyValue::announce<&QVStandInDatabase::synchronizationStatesChanged>(this);
}

void QVStandInDatabase::removeAllSynchronizationStates() {
    for (const auto &state : std::as_const(m_states)) {
        ++m_furtherObservations[state.get()];
    }
    m_states.clear();
    m_members.clear();
}

void QVStandInDatabase::addContainingLocationsObject(
    const std::shared_ptr<QVSyncLocation> &location) {
    m_containingLocations.insert(location);
    KeyValue::announce<&QVStandInDatabase::containingLocationsChanged>(this);
}

void QVStandInDatabase::removeContainingLocationsObject(
    const std::shared_ptr<QVSyncLocation> &location) {
    m_containingLocations.erase(location);
    KeyValue::announce<&QVStandInDatabase::containingLocationsChanged>(this);
}

bool QVStandInDatabase::existsInLocation(const std::shared_ptr<QVSyncLocation> &location) const {
    return m_containingLocations.contains(location);
}

void QVStandInDatabase::updateCanSynchronize() {
    updateCanSynchronize(syncLog().isVerbose());
}

void QVStandInDatabase::updateCanSynchronize(bool isVerbose) {
    bool hasEnabledState = false;
    for (const auto &state : m_states) {
        if (isVerbose) {
            syncLog().verbose(QStringLiteral("Contemplating state %1 at %2")
                                  .arg(state->databaseUUID())
                                  .arg(reinterpret_cast<quintptr>(state.get()), 0, 16));
        }
        hasEnabledState = hasEnabledState || state->isEnabled();
    }
    setCanSynchronize(hasEnabledState);
}

void QVStandInDatabase::updateDateOfLastSynchronization() {
    QDateTime latest;
    for (const auto &state : m_states) {
        latest = later(latest, state->lastSynced());
    }
    setDateOfLastSynchronization(latest);
}

QString QVStandInDatabase::description() const {
    const auto address = static_cast<quint32>(reinterpret_cast<quintptr>(this));
    return QStringLiteral("<%1: 0x%2 %3>")
        .arg(QLatin1StringView(metaObject()->className()))
        .arg(address, 0, 16)
        .arg(m_UUID.isNull() ? QStringLiteral("(null)") : m_UUID);
}

void QVStandInDatabase::didReceiveDatabaseRenamedNotification(const Notification &notification) {
    const auto *database = qobject_cast<const QVDatabase *>(notification.object);
    if (!database) {
        syncLog().message(
            QStringLiteral("Received database-renamed notification with non-database object: %1")
                .arg(descriptionOf(notification.object)));
        return;
    }
    if (database->UUID() == m_UUID) {
        setName(database->name());
    }
}

KeyValue::KeyPaths QVStandInDatabase::keyPathsForValuesAffectingCanSynchronize() {
    return {"synchronizationStates"};
}

KeyValue::KeyPaths QVStandInDatabase::keyPathsForValuesAffectingSchedule() {
    return {"synchronizationStates"};
}

KeyValue::KeyPaths QVStandInDatabase::keyPathsForValuesAffectingSyncOnOpen() {
    return {"synchronizationStates"};
}

KeyValue::KeyPaths QVStandInDatabase::keyPathsForValuesAffectingSyncOnClose() {
    return {"synchronizationStates"};
}
