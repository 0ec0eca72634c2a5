#include "HostCheck/LocationsControllerPromises.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>

#include "HostCheck/Checking.h"

using namespace Checking;

namespace LocationsControllerPromises {
namespace {

constexpr char Header[] = "Host/QVSyncLocationsController.h";

/// New locations at the end of the list, which leave it with this object.
struct Listed {
    Listed() {
        for (const auto &location : locations) {
            list().insertObjectInSyncLocationsAtIndex(location, list().countOfSyncLocations());
        }
    }
    ~Listed() {
        for (const auto &location : locations) {
            list().removeObjectFromSyncLocationsAtIndex(
                list().syncLocations().lastIndexOf(location));
        }
    }
    Listed(const Listed &) = delete;
    Listed &operator=(const Listed &) = delete;

    const QList<std::shared_ptr<QVSyncLocation>> locations{newLocation(), newLocation()};
};

void locationsKeepTheirIdentity() {
    const Listed listed;
    require(!list().syncLocations().contains(nullptr), "an entry is null");
    require(list().syncLocations() == list().syncLocations(),
            "two calls in succession return other objects");
    require(list().syncLocations().mid(list().syncLocations().size() - 2) == listed.locations,
            "locations that were appended are not at the end");
}

void countIsTheSize() {
    const Listed listed;
    require(list().countOfSyncLocations() == list().syncLocations().size(),
            "the count is another one");
}

void locationsAreInsertedBeforeTheIndex() {
    for (const bool isFirst : {true, false}) {
        const auto location = newLocation();
        const auto before = list().syncLocations();
        const qsizetype index = isFirst ? 0 : before.size();
        list().insertObjectInSyncLocationsAtIndex(location, index);
        auto expected = before;
        expected.insert(index, location);
        const bool isThere = list().syncLocations() == expected;
        list().removeObjectFromSyncLocationsAtIndex(list().syncLocations().indexOf(location));
        require(isThere, "a location is not where it was inserted");
    }
}

/// A location that no host has made.
class ForeignLocation : public QVSyncLocation {
public:
    Url URL() const override { return {}; }
    void setURL(const Url & /*URL*/) override {}
    QVSyncStates synchronizationStates() const override { return {}; }
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString & /*UUID*/) const override {
        return nullptr;
    }
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString & /*UUID*/,
                                                             const QString & /*name*/) override {
        return nullptr;
    }
    std::shared_ptr<QVSyncStore> createStore() override { return nullptr; }
};

void foreignLocationIsNotInserted() {
    const auto before = list().syncLocations();
    const auto insert = [] {
        list().insertObjectInSyncLocationsAtIndex(std::make_shared<ForeignLocation>(), 0);
    };
    try {
        requireAssertion(insert, "a location that is not one of this host is accepted");
    } catch (const Broken &) {
        // The other promises need the former list.
        list().removeObjectFromSyncLocationsAtIndex(0);
        throw;
    }
    require(list().syncLocations() == before, "the list has changed");
}

void nullIsNotInserted() {
    const auto before = list().syncLocations();
    requireAssertion([] { list().insertObjectInSyncLocationsAtIndex(nullptr, 0); },
                     "null is accepted");
    require(list().syncLocations() == before, "the list has changed");
}

void indexIsThatOfTheObject() {
    const Listed listed;
    for (const auto &location : listed.locations) {
        require(list().indexOfObjectInSyncLocations(location) ==
                    list().syncLocations().indexOf(location),
                "the index is not that of the object");
    }
}

void otherObjectsHaveNoIndex() {
    const Listed listed;
    require(list().indexOfObjectInSyncLocations(nullptr) == -1, "null has an index");
    require(list().indexOfObjectInSyncLocations(newLocation()) == -1,
            "a location that is not in the list has an index");
}

void locationIsRemoved() {
    const Listed listed;
    const auto before = list().syncLocations();
    list().removeObjectFromSyncLocationsAtIndex(before.size() - 1);
    require(list().syncLocations() == before.mid(0, before.size() - 1),
            "the list is not the former one without that location");
}

void wrongIndexesRemoveNothing() {
    const Listed listed;
    const auto before = list().syncLocations();
    for (const qsizetype index : {qsizetype(-1), before.size(), before.size() + 1}) {
        list().removeObjectFromSyncLocationsAtIndex(index);
        require(list().syncLocations() == before, "an index outside the list removes a location");
    }
}

void removedLocationIsUsable() {
    const auto location = newLocation();
    const qsizetype index = list().countOfSyncLocations();
    list().insertObjectInSyncLocationsAtIndex(location, index);
    const auto state = location->addStateForDatabaseWithUUID(newUUID(), QString());
    list().removeObjectFromSyncLocationsAtIndex(index);
    const Url URL = Url::fromString(QStringLiteral("https://localhost/"));
    location->setURL(URL);
    state->setEnabled(true);
    require(location->URL() == URL && state->isEnabled(), "it does not take a value");
    require(location->synchronizationStates() == QVSyncStates{state}, "its states are gone");
}

void savingLeavesTheError() {
    std::optional<Error> error;
    require(list().save(&error) != error.has_value(),
            "it succeeds with an error, or fails without one");
    list().save(nullptr);
}

void savingIsAnnounced() {
    QVSyncLocationsController &controller = list();
    requireOffer(controller.metaObject()->indexOfSignal("saved()") >= 0);
    // A slot that every object has; whether it was called shows in the event that it posts.
    auto *receiver = new QObject;
    const QPointer<QObject> isWaiting(receiver);
    controller.connectSaved(receiver, SLOT(deleteLater()));
    const bool isSaved = controller.save(nullptr);
    QCoreApplication::sendPostedEvents(receiver, QEvent::DeferredDelete);
    const bool wasAnnounced = !isWaiting;
    delete isWaiting.data();
    require(wasAnnounced == isSaved, "the signal does not say whether it was saved");
}

constexpr HostPromise Promises[] = {
    {"QVSyncLocationsController.syncLocations", Header,
     "Returns the locations in the user's order. No entry is null.", &locationsKeepTheirIdentity},
    {"QVSyncLocationsController.countOfSyncLocations", Header,
     "Returns the size of syncLocations().", &countIsTheSize},
    {"QVSyncLocationsController.insertObjectInSyncLocationsAtIndex", Header,
     "Inserts `location` before the one at `index`, which must be from 0 to "
     "countOfSyncLocations(); that count appends.",
     &locationsAreInsertedBeforeTheIndex},
    {"QVSyncLocationsController.insertObjectInSyncLocationsAtIndex (null)", Header,
     "Raises an AssertionFailure if `location` is null or not one of this host.",
     &nullIsNotInserted},
    {"QVSyncLocationsController.insertObjectInSyncLocationsAtIndex (foreign)", Header,
     "Raises an AssertionFailure if `location` is null or not one of this host.",
     &foreignLocationIsNotInserted},
    {"QVSyncLocationsController.indexOfObjectInSyncLocations", Header,
     "Returns the index of this object (compared by identity), or -1 if the list does not contain "
     "it.",
     &indexIsThatOfTheObject},
    {"QVSyncLocationsController.indexOfObjectInSyncLocations (absent)", Header,
     "or -1 if the list does not contain it. `location` may be null.", &otherObjectsHaveNoIndex},
    {"QVSyncLocationsController.removeObjectFromSyncLocationsAtIndex", Header,
     "Removes the location at `index` with its states.", &locationIsRemoved},
    {"QVSyncLocationsController.removeObjectFromSyncLocationsAtIndex (outside)", Header,
     "Has no effect if `index` is not from 0 to countOfSyncLocations() - 1, in particular if it is "
     "the -1 of indexOfObjectInSyncLocations().",
     &wrongIndexesRemoveNothing},
    {"QVSyncLocationsController.removeObjectFromSyncLocationsAtIndex (held)", Header,
     "Others who hold the location can continue to use it, but it is not saved any more.",
     &removedLocationIsUsable},
    {"QVSyncLocationsController.save", Header,
     "Returns false if nothing was saved; if `error` is not null, it then receives the reason, and "
     "is not changed otherwise.",
     &savingLeavesTheError},
    {"QVSyncLocationsController.saved", Header,
     "A host may give its controller the signal \"saved()\", emitted after save() has succeeded.",
     &savingIsAnnounced},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace LocationsControllerPromises
