#include "Application/ShellCommandRunner.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

#include "Application/Interface/NoteLibrary.h"
#include "Application/Interface/RemovalDecider.h"
#include "Application/RemovalDialog.h"
#include "Application/SynchronizationSummary.h"
#include "Host/InboxUUID.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncResult.h"
#include "Host/QVSyncStore.h"
#include "Host/QVSyncStoreCheck.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/RelativeDate.h"

namespace {

using Handler = ShellCommandRunner::Handler;
using Item = SynchronizationSummary::Item;
using Location = std::shared_ptr<QVSyncLocation>;

QString runnerText(const char *text) {
    return QCoreApplication::translate("ShellCommandRunner", text);
}

void post(const Handler &handler, const ShellResult &result) {
    MainQueue::dispatchAsync([handler, result] { handler(result); });
}

QString nameOf(const Item &item) {
    return runnerText("“%1” with “%2”").arg(item.database, item.location);
}

QString stateOf(const Item &item) {
    if (item.failure) {
        return item.failure->localizedDescription;
    }
    const QDateTime date = item.state->lastSynced();
    if (!date.isValid()) {
        return runnerText("never synchronized");
    }
    const QString words = relativeDateString(date, QDateTime::currentDateTime());
    return item.isUnsent ? runnerText("has changes since %1").arg(words)
                         : runnerText("up to date since %1").arg(words);
}

QJsonValue dateInJson(const QDateTime &date) {
    return date.isValid() ? QJsonValue(date.toUTC().toString(Qt::ISODate)) : QJsonValue();
}

QJsonObject inJson(const Item &item) {
    return {{QStringLiteral("database"), item.database},
            {QStringLiteral("location"), item.location},
            {QStringLiteral("lastSynced"), dateInJson(item.state->lastSynced())},
            {QStringLiteral("hasUnsentChanges"), item.isUnsent},
            {QStringLiteral("failure"),
             item.failure ? QJsonValue(item.failure->localizedDescription) : QJsonValue()}};
}

ShellResult status(const ShellCommand &command) {
    const QVSyncPlugin &plugin = *QVSyncPlugin::plugin();
    const SynchronizationSummary summary = SynchronizationSummary::of(plugin);
    const QString activity = plugin.dispatcher()->activity();
    const bool isWell = summary.items().isEmpty() || summary.isUpToDate();
    ShellResult result{.exitCode = isWell ? ShellResult::Success : ShellResult::Problems};
    if (command.json) {
        QJsonArray items;
        for (const Item &item : summary.items()) {
            items.append(inJson(item));
        }
        result.output = QString::fromUtf8(
            QJsonDocument(QJsonObject{{QStringLiteral("upToDate"), isWell},
                                      {QStringLiteral("activity"), activity},
                                      {QStringLiteral("next"), dateInJson(summary.nextDate())},
                                      {QStringLiteral("synchronizations"), items}})
                .toJson());
        return result;
    }
    QStringList lines;
    for (const Item &item : summary.items()) {
        lines.append(QStringLiteral("%1: %2").arg(nameOf(item), stateOf(item)));
    }
    lines.append(activity.isEmpty() ? summary.text() : activity);
    result.output = lines.join(u'\n') + u'\n';
    return result;
}

/// Returns the UUIDs of the databases that `names` names, as stores know them; a name that is
/// unknown as the error.
tl::expected<QStringList, QString> identified(const QStringList &names,
                                              const NoteLibrary &library) {
    QStringList UUIDs;
    const auto databases = library.knownDatabases();
    for (const QString &name : names) {
        const qsizetype before = UUIDs.size();
        for (const auto &database : databases) {
            if (database->name() == name || database->UUID() == name) {
                UUIDs.append(UUIDInStores(*database, library.inbox().get()));
            }
        }
        if (UUIDs.size() == before) {
            return tl::make_unexpected(name);
        }
    }
    return UUIDs;
}

/// Lists the notes about which `decision` was carried out.
QString removals(const QList<RemovalQuestion> &decided, RemovalDecision decision) {
    QStringList lines;
    for (const RemovalQuestion &each : decided) {
        const QString heading =
            decision == RemovalDecision::Keep
                ? runnerText(
                      "Notes of “%1” that “%2” would have removed and that were kept (%3 of "
                      "%4):")
                : runnerText(
                      "Notes of “%1” that “%2” has removed (%3 of %4; “Deleted Notes” in the "
                      "menu “Edit” restores them):");
        lines << heading.arg(each.database, each.location, QString::number(each.titles.size()),
                             QString::number(each.total))
              << RemovalDialog::notes(each);
    }
    return lines.isEmpty() ? QString() : lines.join(u'\n') + u'\n';
}

/// Reports how the states are after a synchronization that began at `start`.
ShellResult synchronized(const QVSyncStates &states, const QDateTime &start) {
    ShellResult result{.exitCode = ShellResult::Success};
    const QList<Item> items = SynchronizationSummary::of(*QVSyncPlugin::plugin()).items();
    for (const Item &item : items) {
        if (!states.contains(item.state)) {
            continue;
        }
        const std::optional<QVSyncResult> last = QVSyncResult::of(item.state.get());
        const bool isDone = last ? last->date >= start : item.state->lastSynced() >= start;
        if (item.failure && isDone) {
            result.exitCode = ShellResult::Problems;
            result.errors += item.failure->localizedDescription + u'\n';
        } else if (!isDone) {
            result.exitCode = ShellResult::Problems;
            result.errors +=
                runnerText("%1: the synchronization was stopped.").arg(nameOf(item)) + u'\n';
        } else {
            result.output += runnerText("%1: synchronized (%2 received, %3 sent)")
                                 .arg(nameOf(item))
                                 .arg(last ? last->received : 0)
                                 .arg(last ? last->sent : 0) +
                             u'\n';
        }
    }
    return result;
}

void synchronize(const ShellCommand &command, const NoteLibrary &library, const Handler &handler) {
    const auto UUIDs = identified(command.arguments, library);
    if (!UUIDs) {
        post(handler, ShellResult::failed(
                          runnerText("There is no database “%1”. “velmora --describe” lists all.")
                              .arg(UUIDs.error())));
        return;
    }
    QVSyncStates states;
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    for (const auto &location : locations) {
        const QVSyncStates all = location->synchronizationStates();
        std::copy_if(all.begin(), all.end(), std::back_inserter(states), [&](const auto &state) {
            return state->isEnabled() &&
                   (UUIDs->isEmpty() || UUIDs->contains(state->databaseUUID()));
        });
    }
    if (states.isEmpty()) {
        post(handler, ShellResult::failed(runnerText(
                          "Nothing is synchronized. Tick a location in Sync Preferences first.")));
        return;
    }
    const QDateTime start = QDateTime::currentDateTime();
    const auto report = [states, start, handler,
                         decision = command.removals](const QList<RemovalQuestion> &decided) {
        ShellResult result = synchronized(states, start);
        result.output.prepend(removals(decided, decision));
        handler(result);
    };
    QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
    if (RemovalDecider *decider = RemovalDecider::of(dispatcher)) {
        decider->synchronize(states, command.removals, report);
    } else {
        dispatcher->performSynchronizationsWithSynchronizationStates(states,
                                                                     [report] { report({}); });
    }
}

QString unknownLocation(const QString &wanted, const QList<Location> &locations) {
    QStringList lines{
        runnerText("There is no location “%1”. State the title or address of one of these:")
            .arg(wanted)};
    for (const Location &each : locations) {
        lines.append(SynchronizationSummary::titleOf(*each));
    }
    return lines.join(u'\n');
}

void check(const QString &wanted, const Handler &handler) {
    const auto locations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    const auto found = std::find_if(locations.begin(), locations.end(), [&](const Location &each) {
        return SynchronizationSummary::titleOf(*each) == wanted ||
               each->URL().stringWithoutPassword() == wanted ||
               (each->URL().isFileURL() && each->URL().path() == wanted);
    });
    if (found == locations.end()) {
        post(handler, ShellResult::failed(unknownLocation(wanted, locations)));
        return;
    }
    const QString title = SynchronizationSummary::titleOf(**found);
    const auto store = (*found)->createStore();
    const auto report = [title, handler](const QVSyncStoreCheck &result) {
        const bool isWell = !result.error;
        const QString text = result.text(title) + u'\n';
        post(handler, {isWell ? ShellResult::Success : ShellResult::Problems,
                       isWell ? text : QString(), isWell ? QString() : text});
    };
    if (const auto checkable = QVCheckableStore::of(store)) {
        checkable->checkWithCompletionHandler(report);
        return;
    }
    store->openWithCompletionHandler([store, report](const std::optional<Error> &refused) {
        if (refused) {
            report({.error = refused});
            return;
        }
        store->fetchDatabasesWithCompletionHandler(
            [report](const auto &databases, const auto &error) {
                report({.databases = databases ? databases->size() : 0,
                        .isReadable = databases.has_value(),
                        .error = error});
            });
    });
}

}  // namespace

void ShellCommandRunner::run(const ShellCommand &command, const NoteLibrary &library,
                             const Handler &handler) {
    switch (command.name) {
        case ShellCommand::Name::Synchronize:
            synchronize(command, library, handler);
            break;
        case ShellCommand::Name::Status:
            post(handler, status(command));
            break;
        case ShellCommand::Name::Check:
            check(command.arguments.value(0), handler);
            break;
    }
}
