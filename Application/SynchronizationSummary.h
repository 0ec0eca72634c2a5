#pragma once

#include <QtCore/QDateTime>
#include <memory>
#include <optional>

#include "Host/QVSyncState.h"
#include "Platform/Foundation/Error.h"

class QVSyncLocation;
class QVSyncPlugin;

/// How far the enabled states of all locations are synchronized, at one moment. A value. Must be
/// used on the main thread.
class SynchronizationSummary {
public:
    /// One database at one location.
    struct Item {
        std::shared_ptr<QVSyncState> state;
        /// The name of the database and the title of the location.
        QString database;
        QString location;
        /// What failed in the last job, for the user, also if that only left some items out; or why
        /// it is not known whether there are unsent changes. Empty if nothing did.
        std::optional<Error> failure = {};
        /// The reason in a few words; may be empty.
        QString reason = {};
        /// Whether the failure only left some items out: the others are synchronized.
        bool isPartial = false;
        /// Whether the database has changes that the location does not have yet. Also set if that
        /// cannot be read; never set if the host does not know it, see QVUnsentChanges.
        bool isUnsent = false;
        /// Whether the database was never synchronized with the location: what is there is not
        /// known.
        bool isNew = false;

        bool isUpToDate() const { return !failure && !isUnsent && !isNew; }
    };

    /// The summary without any state.
    SynchronizationSummary() = default;
    /// Reads the states. Blocks for the profile. Errors of the profile become failures of the
    /// items. NSApp() must exist.
    static SynchronizationSummary of(const QVSyncPlugin &plugin);

    /// In the order of the locations.
    const QList<Item> &items() const { return m_items; }
    /// Returns whether there are items and all are up to date.
    bool isUpToDate() const;
    /// Returns when the first schedule of the items fires, computed when the summary was read; an
    /// invalid date if none does.
    QDateTime nextDate() const { return m_nextDate; }
    /// Returns one line for the user: "All up to date · next: today at 21:00", or what failed or
    /// remains to be synchronized. The date is relative to the day of the call. A failure is named
    /// before items that were left out, these before unsent changes, and several are only counted.
    QString text() const;
    /// Returns the items that have a failure.
    QList<Item> failedItems() const;
    /// Returns all failures as one error for the user, without next steps; empty if there is none.
    /// Of more than five, the others are only counted.
    std::optional<Error> failure() const;

    /// Returns the name of the database of `state`, and the title of `location`. If the database is
    /// not open, that is the name that the state has saved.
    static QString nameOf(const QVSyncState &state);
    static QString titleOf(const QVSyncLocation &location);

private:
    static Item itemOf(const QVSyncPlugin &plugin, const std::shared_ptr<QVSyncState> &state,
                       const QVSyncLocation &location);
    /// Returns the text without the next date.
    QString stateText() const;
    /// Returns the text about `failed`, which must not be empty.
    QString failureText(const QList<Item> &failed) const;
    /// Returns the text about `partial`, items of which some parts failed; must not be empty.
    QString partialText(const QList<Item> &partial) const;

    QList<Item> m_items;
    QDateTime m_nextDate;
};
