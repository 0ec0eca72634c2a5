#include "Application/SynchronizationSummary.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

#include "Application/CountText.h"
#include "Application/Interface/QVUnsentChanges.h"
#include "Host/InboxUUID.h"
#include "Host/QVApplication.h"
#include "Host/QVDatabase.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
#include "Platform/Foundation/CombinedErrors.h"
#include "Platform/Foundation/RelativeDate.h"

namespace {

QString summaryText(const char *text) {
    return QCoreApplication::translate("SynchronizationSummary", text);
}

using Item = SynchronizationSummary::Item;

template <class Condition>
QList<Item> selected(const QList<Item> &items, Condition condition) {
    QList<Item> found;
    std::copy_if(items.begin(), items.end(), std::back_inserter(found), condition);
    return found;
}

}  // namespace

SynchronizationSummary SynchronizationSummary::of(const QVSyncPlugin &plugin) {
    SynchronizationSummary summary;
    const auto locations = plugin.locationsController()->syncLocations();
    for (const auto &location : locations) {
        const QVSyncStates states = location->synchronizationStates();
        for (const auto &state : states) {
            if (!state->isEnabled()) {
                continue;
            }
            summary.m_items.append(itemOf(plugin, state, *location));
            const QDateTime next =
                state->schedule() ? state->schedule()->nextScheduledDate() : QDateTime();
            if (next.isValid() && (!summary.m_nextDate.isValid() || next < summary.m_nextDate)) {
                summary.m_nextDate = next;
            }
        }
    }
    return summary;
}

Item SynchronizationSummary::itemOf(const QVSyncPlugin &plugin,
                                    const std::shared_ptr<QVSyncState> &state,
                                    const QVSyncLocation &location) {
    Item item{.state = state,
              .database = nameOf(*state),
              .location = titleOf(location),
              .isNew = !state->lastSynced().isValid()};
    if (const std::optional<QVSyncResult> result = QVSyncResult::of(state.get())) {
        item.failure = result->failure(item.database, location);
        item.reason = result->summary;
        item.isPartial = item.failure && !result->error;
    }
    const Expected<bool> unsent = QVUnsentChanges::in(*state, plugin.dispatcher());
    item.isUnsent = unsent.value_or(true);
    if (!unsent) {
        item.failure = unsent.error();
        item.isPartial = false;
    }
    return item;
}

QString SynchronizationSummary::nameOf(const QVSyncState &state) {
    if (state.databaseUUID() == InboxUUID && NSApp()->inbox()) {
        return NSApp()->inbox()->name();
    }
    const auto database = QVSyncPlugin::databaseForUUID(state.databaseUUID(), false);
    return database ? database->name() : state.databaseName();
}

QString SynchronizationSummary::titleOf(const QVSyncLocation &location) {
    return QVSyncLocationFormatter::formatterForLocationWithURL(location.URL())->title();
}

bool SynchronizationSummary::isUpToDate() const {
    return !m_items.isEmpty() && std::all_of(m_items.begin(), m_items.end(),
                                             [](const Item &item) { return item.isUpToDate(); });
}

QString SynchronizationSummary::text() const {
    return m_nextDate.isValid()
               ? summaryText("%1 · next: %2")
                     .arg(stateText(), relativeDateString(m_nextDate, QDateTime::currentDateTime()))
               : stateText();
}

QString SynchronizationSummary::stateText() const {
    if (m_items.isEmpty()) {
        return summaryText("Nothing is synchronized: no database has a ticked location");
    }
    const QList<Item> incomplete = failedItems();
    const QList<Item> failed =
        selected(incomplete, [](const Item &item) { return !item.isPartial; });
    if (!failed.isEmpty()) {
        return failureText(failed);
    }
    if (!incomplete.isEmpty()) {
        return partialText(incomplete);
    }
    const QList<Item> late = selected(m_items, [](const Item &item) { return !item.isUpToDate(); });
    if (late.isEmpty()) {
        return summaryText("All up to date");
    }
    if (late.size() > 1) {
        return summaryText("There are changes that are not synchronized yet");
    }
    const Item &item = late.first();
    return (item.isNew ? summaryText("“%1” has not been synchronized with “%2” yet")
                       : summaryText("“%1” has changes that are not synchronized with “%2” yet"))
        .arg(item.database, item.location);
}

QString SynchronizationSummary::failureText(const QList<Item> &failed) const {
    if (failed.size() > 1) {
        return translateCount("SynchronizationSummary", "%1 of %2 synchronizations failed", nullptr,
                              failed.size())
            .arg(failed.size())
            .arg(m_items.size());
    }
    const Item &item = failed.first();
    const QString text =
        summaryText("“%1” is not synchronized with “%2”").arg(item.database, item.location);
    return item.reason.isEmpty() ? text : QStringLiteral("%1: %2").arg(text, item.reason);
}

QString SynchronizationSummary::partialText(const QList<Item> &partial) const {
    if (partial.size() > 1) {
        return translateCount("SynchronizationSummary",
                              "Some items failed in %1 of %2 synchronizations", nullptr,
                              partial.size())
            .arg(partial.size())
            .arg(m_items.size());
    }
    return summaryText("Some items of “%1” could not be synchronized with “%2”")
        .arg(partial.first().database, partial.first().location);
}

QList<Item> SynchronizationSummary::failedItems() const {
    return selected(m_items, [](const Item &item) { return item.failure.has_value(); });
}

std::optional<Error> SynchronizationSummary::failure() const {
    QList<Error> errors;
    const QList<Item> failed = failedItems();
    for (const Item &item : failed) {
        errors.append(*item.failure);
    }
    return errors.isEmpty() ? std::nullopt : std::optional(CombinedErrors::of(errors));
}
