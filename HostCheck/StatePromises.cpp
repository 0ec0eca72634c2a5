#include "HostCheck/StatePromises.h"

#include <QtCore/QMetaProperty>

#include "Host/QVSyncResult.h"
#include "HostCheck/Checking.h"

using namespace Checking;

namespace StatePromises {
namespace {

constexpr char Header[] = "Host/QVSyncState.h";

/// Sets each of `values` with `set` and requires that this announces it once, in effect.
template <class Value>
void requireAnnouncements(const QList<Value> &values, void (QVSyncState::*changed)(),
                          void (QVSyncState::*set)(Value), Value (QVSyncState::*get)() const) {
    const NewState added;
    QVSyncState &state = *added.state;
    int count = 0;
    Value seen = {};
    QObject::connect(&state, changed, [&] {
        ++count;
        seen = (state.*get)();
    });
    for (const Value &value : values) {
        count = 0;
        (state.*set)(value);
        require((state.*get)() == value, "the value is not the one that was set");
        require(count == 1, "setting a value does not announce it once");
        require(seen == value, "the announcement precedes the change");
    }
}

const QList<bool> Values{true, true, false, false};

void enabledIsAnnounced() {
    requireAnnouncements(Values, &QVSyncState::enabledChanged, &QVSyncState::setEnabled,
                         &QVSyncState::isEnabled);
}

void syncOnOpenIsAnnounced() {
    requireAnnouncements(Values, &QVSyncState::syncOnOpenChanged, &QVSyncState::setSyncOnOpen,
                         &QVSyncState::syncOnOpen);
}

void syncOnCloseIsAnnounced() {
    requireAnnouncements(Values, &QVSyncState::syncOnCloseChanged, &QVSyncState::setSyncOnClose,
                         &QVSyncState::syncOnClose);
}

void scheduleIsAnnounced() {
    const NewState added;
    int count = 0;
    QVSyncSchedulePtr seen;
    QObject::connect(added.state.get(), &QVSyncState::scheduleChanged, [&] {
        ++count;
        seen = added.state->schedule();
    });
    const QVSyncSchedulePtr schedule = QVSyncSchedule::newSchedule();
    for (const QVSyncSchedulePtr &value : {schedule, schedule, QVSyncSchedulePtr()}) {
        count = 0;
        added.state->setSchedule(value);
        require(count == 1, "setting a schedule does not announce it once");
        require(seen == value, "the announcement precedes the change");
    }
}

void UUIDIsConstant() {
    const auto location = newLocation();
    const QString UUID = newUUID();
    const auto state = location->addStateForDatabaseWithUUID(UUID, QString());
    require(state->databaseUUID() == UUID, "it is not that of the database");
    state->setEnabled(true);
    require(state->databaseUUID() == UUID, "it is not constant");
}

void nameIsKnown() {
    const NewState added;
    require(added.state->databaseName() == QStringLiteral("Checked"), "it is another one");
}

void destinationIsTheLocation() {
    const NewState added;
    require(added.state->destination() == added.location, "it is another object");
}

void destinationIsNotOwned() {
    std::shared_ptr<QVSyncState> state;
    {
        const NewState added;
        state = added.state;
    }
    require(!state->destination(), "a location without other owners still exists");
}

void locationKeepsItsStates() {
    NewState added;
    const std::weak_ptr<QVSyncState> state(added.state);
    added.state->setEnabled(false);
    added.state = nullptr;
    require(!state.expired(), "the location does not keep its state");
    require(added.location->synchronizationStates() == QVSyncStates{state.lock()},
            "the location has removed its state");
}

void disabledStateKeepsItsSchedule() {
    const NewState added;
    const QVSyncSchedulePtr schedule = QVSyncSchedule::newSchedule();
    added.state->setEnabled(true);
    added.state->setSchedule(schedule);
    added.state->setEnabled(false);
    require(added.state->schedule() == schedule, "disabling removes the schedule");
}

void newStateIsNotSynchronized() {
    const NewState added;
    require(!added.state->lastSynced().isValid(), "a new state has a date");
}

void newStateHasNoResult() {
    const NewState added;
    requireOffer(QVSyncResult::isOfferedBy(added.state.get()));
    require(!QVSyncResult::of(added.state.get()), "a new state has a result");
}

void resultIsAnnounced() {
    const NewState added;
    requireOffer(QVSyncResult::isOfferedBy(added.state.get()));
    const QMetaObject *meta = added.state->metaObject();
    const QMetaProperty property = meta->property(meta->indexOfProperty(QVSyncResult::Key));
    require(property.hasNotifySignal(), "the property has no NOTIFY signal");
    require(property.metaType() == QMetaType::fromType<std::optional<QVSyncResult>>(),
            "the property is of another type");
}

constexpr char Announced[] =
    "Every setter announces its key, also if the value stays the same, and takes effect at once;";
constexpr char Destination[] =
    "Returns the location that holds this state, the same object as in the locations controller's "
    "list; nullptr if the location has been destroyed.";

constexpr HostPromise Promises[] = {
    {"QVSyncState.databaseUUID", Header, "Constant; never empty.", &UUIDIsConstant},
    {"QVSyncState.databaseName", Header,
     "Returns the name of the database as the location last knew it.", &nameIsKnown},
    {"QVSyncState.destination", Header, Destination, &destinationIsTheLocation},
    {"QVSyncState.destination (destroyed)", Header, Destination, &destinationIsNotOwned},
    {"QVSyncState (kept)", Header,
     "The location shares ownership of its states and removes one only after its database was "
     "deleted from this computer.",
     &locationKeepsItsStates},
    {"QVSyncState.setEnabled", Header, Announced, &enabledIsAnnounced},
    {"QVSyncState.isEnabled", Header,
     "A disabled state keeps its schedule and the date of its last synchronization.",
     &disabledStateKeepsItsSchedule},
    {"QVSyncState.setSchedule", Header, Announced, &scheduleIsAnnounced},
    {"QVSyncState.setSyncOnOpen", Header, Announced, &syncOnOpenIsAnnounced},
    {"QVSyncState.setSyncOnClose", Header, Announced, &syncOnCloseIsAnnounced},
    {"QVSyncState.lastSynced", Header,
     "Returns the date of the last successful synchronization, or an invalid date if there was "
     "none.",
     &newStateIsNotSynchronized},
    {"QVSyncResult.of", "Host/QVSyncResult.h", "it is empty if no job has ended yet",
     &newStateHasNoResult},
    {"QVSyncResult.lastResult", "Host/QVSyncResult.h",
     "A host that has it gives its states the property \"lastResult\" of the type "
     "std::optional<QVSyncResult>, with a NOTIFY signal;",
     &resultIsAnnounced},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace StatePromises
