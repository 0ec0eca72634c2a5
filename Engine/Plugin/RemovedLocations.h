#pragma once

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <chrono>
#include <functional>

#include "Application/Interface/ProfileConstants.h"
#include "Engine/Profile/LogMover.h"
#include "Platform/Foundation/Expected.h"

class EngineLocationKinds;
class EngineLocationsController;
class ProfileDatabase;
struct EngineLocationKind;
class Url;

/// Forgets what was kept for locations that were removed: known transactions, and what the kind of
/// the location adds to them, such as certificates and secrets. What another location needs is
/// never forgotten, nor what belongs to a location that is in the list again. The address that a
/// location had before it was edited is treated as that of a removed location.
///
/// The profile records the locations whose removal was saved, until all of that is deleted or was
/// not there. What could not be forgotten in one run is logged, and forgotten at the start of a
/// later one. Must be used on the main thread.
class RemovedLocations : public QObject {
    Q_OBJECT
public:
    /// The arguments are not owned and must outlive this object.
    RemovedLocations(const ProfileDatabase &profile, const EngineLocationsController &locations,
                     const EngineLocationKinds &kinds);

    /// Replaces RemovalUndoTime for later removals.
    void setUndoTime(std::chrono::milliseconds undoTime) { m_undoTime = undoTime; }
    /// Forgets what was kept for the locations that were removed in former runs. Must be called
    /// once, after the locations were loaded. Returns without waiting for the keyring; failures are
    /// logged.
    void start();
    /// Called when the location `identifier` was removed from the list. Returns at once. It is
    /// forgotten when RemovalUndoTime has passed since the last removal, if the removal was saved
    /// then and the location is not in the list again; otherwise nothing happens, and a removal
    /// that is saved later is handled in the next run. Nothing is forgotten if this object is
    /// destroyed before.
    void didRemoveLocation(const QString &identifier);

private:
    /// Forgets a part of what is known of the store, which may be much, and goes on later. Then
    /// forgets the rest.
    void forget(const QString &identifier);
    /// Moves the profile's log, which the deleted rows have filled, on another thread, then goes
    /// on; if the log cannot be moved, the next start of the program does.
    void goOn(const QString &identifier);
    /// Forgets what else is in the profile, then the secrets.
    void forgetRest(const QString &identifier, const Url &URL);
    /// Returns a function that receives whether the secrets of the removed location are forgotten:
    /// it finishes, or reports the failure and keeps the record of the removal.
    std::function<void(const Expected<void> &forgotten)> finisher(const QString &identifier,
                                                                  const Url &URL);
    /// Removes the record of the removal: nothing is left to forget.
    void finish(const QString &identifier) const;
    /// Returns the URLs of the locations of the list of this kind.
    QList<Url> listedURLs(const EngineLocationKind &kind) const;
    /// Returns whether a location of the list uses the secrets of `URL`.
    bool isNeeded(const Url &URL) const;
    bool isListed(const QString &identifier) const;

    const ProfileDatabase &m_profile;
    const EngineLocationsController &m_locations;
    const EngineLocationKinds &m_kinds;
    std::chrono::milliseconds m_undoTime = RemovalUndoTime;
    /// How often each location was removed: one that is back may be removed again, which begins
    /// another undo time.
    QHash<QString, quint64> m_removals;
    LogMover m_logMover;
};
