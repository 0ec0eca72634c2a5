#pragma once

#include <QtCore/QTemporaryDir>
#include <chrono>
#include <functional>

#include "Host/PZFuture.h"
#include "Host/QVDatabase.h"
#include "Host/QVHostPlugIn.h"
#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"

/// What the checks share. All of it must be used on the main thread unless stated otherwise, while
/// a host is registered. Functions that return a pointer never return null.
namespace Checking {

/// Thrown if a promise is broken. `reason` is a constant.
struct Broken {
    const char *reason;
};
/// Thrown if the host does not offer what the promise is about.
struct NotOffered {};

/// Throws Broken with `reason`, which must be a constant, unless `isTrue`.
void require(bool isTrue, const char *reason);
/// Throws NotOffered unless `isOffered`.
void requireOffer(bool isOffered);
/// Throws Broken with `reason` unless `call` raises an AssertionFailure.
void requireAssertion(const std::function<void()> &call, const char *reason);
/// Runs the event loop until `isTrue` returns true, for half a minute or `limit` at most. Returns
/// whether it did. `isTrue` is called after each event, and after each wakeUp().
bool wait(const std::function<bool()> &isTrue,
          std::chrono::milliseconds limit = std::chrono::seconds(30));
/// Makes wait() call its function again. Thread-safe.
void wakeUp();

/// Makes `host`, which is not owned and may be null, the host that host() returns while this object
/// exists. One at a time.
class CheckedHost {
public:
    explicit CheckedHost(QVHostPlugIn *host);
    /// From now on, no host is known.
    ~CheckedHost();
    CheckedHost(const CheckedHost &) = delete;
    CheckedHost &operator=(const CheckedHost &) = delete;
};
/// Returns the host's plug-in. Throws NotOffered if it is not known.
QVHostPlugIn &host();

/// Returns the class object, which the host owns. Throws NotOffered if the host has none.
template <class ClassObject>
ClassObject &classObject() {
    auto *found = optionalHostClass<ClassObject>();
    requireOffer(found != nullptr);
    return *found;
}

/// Return the objects of the host's sync plug-in, which owns them. Throw Broken if it has none.
QVSyncLocationsController &list();
QVSyncDispatcher &dispatcher();
/// Returns the open databases. Throws NotOffered if the host has no databases, or if one of them is
/// null, which breaks another promise.
QList<std::shared_ptr<QVDatabase>> openDatabases();

/// Returns a new location with this address. Throws NotOffered if the host makes no locations.
std::shared_ptr<QVSyncLocation> newLocation(const Url &URL = Url());
/// Returns a new future. Throws NotOffered if the host makes none, which breaks another promise.
std::shared_ptr<PZFuture> newFuture();
/// Returns a UUID that no database has.
QString newUUID();

/// Makes an empty sync store in the folder `path`, and returns its address. Throws Broken if it
/// cannot be written. Blocks for the disk.
Url makeStore(const QString &path);

/// An empty sync store in a folder, which is removed with this object, and a new location of it.
struct Folder {
    const QTemporaryDir folder;
    const Url URL = makeStore(folder.path());
    const std::shared_ptr<QVSyncLocation> location = newLocation(URL);
};

/// Returns the paths of everything in the store, sorted. Blocks for the disk.
QStringList contentsOf(const Folder &store);

/// The enabled state of the inbox at a new location, which is in the list while this object exists.
class InboxState {
public:
    /// `added` must not be null and is not in the list yet.
    explicit InboxState(const std::shared_ptr<QVSyncLocation> &added);
    /// Removes the location from the list.
    ~InboxState();
    InboxState(const InboxState &) = delete;
    InboxState &operator=(const InboxState &) = delete;

private:
    const std::shared_ptr<QVSyncLocation> m_location;

public:
    const std::shared_ptr<QVSyncState> state;
};

/// The same at a folder, which is removed with this object.
struct InboxInFolder : Folder, InboxState {
    InboxInFolder() : InboxState(location) {}
};

/// A new location, and a new state of a database that does not exist.
struct NewState {
    const std::shared_ptr<QVSyncLocation> location = newLocation();
    std::shared_ptr<QVSyncState> state =
        location->addStateForDatabaseWithUUID(newUUID(), QStringLiteral("Checked"));
};

}  // namespace Checking
