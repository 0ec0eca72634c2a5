#include "Application/ProfileDescription.h"

#include <QtCore/QJsonArray>

#include "Application/Interface/NoteLibrary.h"
#include "Host/QVHourlySchedule.h"
#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"
#include "Host/QVSyncLocationsController.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVWeeklySchedule.h"

namespace {

Expected<QJsonObject> describe(const NoteDatabase &database) {
    return database.notes().map([&](const QList<Note> &notes) {
        return QJsonObject{{QStringLiteral("UUID"), database.UUID()},
                           {QStringLiteral("name"), database.name()},
                           {QStringLiteral("open"), database.isOpen()},
                           {QStringLiteral("inbox"), database.isInbox()},
                           {QStringLiteral("notes"), notes.size()}};
    });
}

QString timeOfDay(const HourAndMinute &time) {
    return QStringLiteral("%1:%2")
        .arg(time.hour, 2, 10, QLatin1Char('0'))
        .arg(time.minute, 2, 10, QLatin1Char('0'));
}

QJsonValue describe(const QVSyncSchedulePtr &schedule) {
    if (const auto *hourly = dynamic_cast<const QVHourlySchedule *>(schedule.get())) {
        return QJsonObject{
            {QStringLiteral("every"), QStringLiteral("hour")},
            {QStringLiteral("minutesPast"), static_cast<int>(hourly->hourlyOffset())}};
    }
    if (const auto *daily = dynamic_cast<const QVDailySchedule *>(schedule.get())) {
        return QJsonObject{{QStringLiteral("every"), QStringLiteral("day")},
                           {QStringLiteral("at"), timeOfDay(daily->hourAndMinute())}};
    }
    if (const auto *weekly = dynamic_cast<const QVWeeklySchedule *>(schedule.get())) {
        return QJsonObject{
            {QStringLiteral("every"), QStringLiteral("week")},
            {QStringLiteral("at"), timeOfDay(weekly->hourAndMinute())},
            {QStringLiteral("daysOfWeek"), static_cast<qint64>(weekly->daysOfWeek())}};
    }
    return {};
}

QJsonObject describe(const QVSyncState &state) {
    const QDateTime lastSynced = state.lastSynced();
    return {{QStringLiteral("databaseUUID"), state.databaseUUID()},
            {QStringLiteral("databaseName"), state.databaseName()},
            {QStringLiteral("enabled"), state.isEnabled()},
            {QStringLiteral("schedule"), describe(state.schedule())},
            {QStringLiteral("syncOnOpen"), state.syncOnOpen()},
            {QStringLiteral("syncOnClose"), state.syncOnClose()},
            {QStringLiteral("lastSynced"),
             lastSynced.isValid() ? QJsonValue(lastSynced.toUTC().toString(Qt::ISODate))
                                  : QJsonValue()}};
}

QJsonObject describe(const QVSyncLocation &location) {
    const Url URL = location.URL();
    const auto formatter = QVSyncLocationFormatter::formatterForLocationWithURL(URL);
    QJsonArray states;
    const QVSyncStates all = location.synchronizationStates();
    for (const auto &state : all) {
        states.append(describe(*state));
    }
    return {{QStringLiteral("URL"),
             URL.isNil() ? QJsonValue() : QJsonValue(URL.stringWithoutPassword())},
            {QStringLiteral("title"), formatter->title()},
            {QStringLiteral("type"), formatter->locationType()},
            {QStringLiteral("states"), states}};
}

}  // namespace

Expected<QJsonObject> describeProfile(const NoteLibrary &library) {
    QJsonArray databases;
    const auto knownDatabases = library.knownDatabases();
    for (const auto &database : knownDatabases) {
        const Expected<QJsonObject> description = describe(*database);
        if (!description) {
            return failure(description.error());
        }
        databases.append(*description);
    }
    QJsonArray locations;
    const auto syncLocations = QVSyncPlugin::plugin()->locationsController()->syncLocations();
    for (const auto &location : syncLocations) {
        locations.append(describe(*location));
    }
    const QVSyncPlugin &plugin = *QVSyncPlugin::plugin();
    return QJsonObject{{QStringLiteral("databases"), databases},
                       {QStringLiteral("locations"), locations},
                       {QStringLiteral("sandboxed"), plugin.usesSandboxedAccess()},
                       {QStringLiteral("grantedFolders"),
                        QJsonArray::fromStringList(plugin.bookmarkDictionaryKeys())}};
}
