#include "Engine/Profile/FirstContents.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QUuid>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Url.h"

namespace {

struct FirstNote {
    const char *title;
    const char *text;
};

struct FirstDatabase {
    const char *name;
    QList<FirstNote> notes;
};

QList<FirstDatabase> firstDatabases() {
    return {
        {"Projects",
         {{"Bookshelf",
           "Measure the alcove beside the window.\nBoards of oak, 24 mm; four of them.\n"
           "Ask Ida for the long clamps."},
          {"Garden",
           "Cut back the roses in March.\nPlant beans once the nights stay above eight degrees."}}},
        {"Recipes",
         {{"Pancakes",
           "250 g flour\n500 ml milk\n3 eggs\nA pinch of salt\n\nStir, let it rest for "
           "half an hour, bake in butter."},
          {"Tomato Soup",
           "1 kg tomatoes, 2 onions, 1 clove of garlic\n\nRoast everything for "
           "forty minutes, add stock, blend."},
          {"Shopping", "Flour, milk, eggs, tomatoes"}}},
    };
}

QString newUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

std::optional<Error> writeInbox(const ProfileDatabase &profile) {
    return profile.run(
        QStringLiteral("INSERT INTO databases (uuid, name, is_inbox) VALUES (?, ?, 1)"),
        {newUUID(), localizedSyncString("Inbox")});
}

std::optional<Error> writeDatabase(const ProfileDatabase &profile, const FirstDatabase &database,
                                   const QString &UUID) {
    const QString name = localizedSyncString(database.name);
    if (std::optional<Error> error = profile.run(
            QStringLiteral("INSERT INTO databases (uuid, name) VALUES (?, ?)"), {UUID, name})) {
        return error;
    }
    const NoteLog log(profile, UUID);
    if (std::optional<Error> error = log.setName(name)) {
        return error;
    }
    for (const FirstNote &first : database.notes) {
        Note note{{},
                  localizedSyncString(first.title),
                  localizedSyncString(first.text),
                  QDateTime::currentDateTime()};
        if (std::optional<Error> error = log.save(note)) {
            return error;
        }
    }
    return {};
}

/// A sync store in the profile folder, with which the database `UUID` is to synchronize.
std::optional<Error> writeLocation(const ProfileDatabase &profile, const QString &UUID,
                                   const QString &name) {
    const QString package = profile.directory() + QStringLiteral("/Sync Stores/Home.qvSyncStore");
    if (!QDir().mkpath(package + QStringLiteral("/databases")) ||
        !QDir().mkpath(package + QStringLiteral("/transactions"))) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           localizedSyncString("The sync store “%1” cannot be made.").arg(package));
    }
    const QString location = newUUID();
    if (std::optional<Error> error = profile.run(
            QStringLiteral("INSERT INTO locations (uuid, position, url) VALUES (?, 0, ?)"),
            {location, Url::fileURL(package).absoluteString()})) {
        return error;
    }
    return profile.run(
        QStringLiteral("INSERT INTO states (location_uuid, database_uuid, database_name, enabled,"
                       " sync_on_open, sync_on_close) VALUES (?, ?, ?, 1, 0, 0)"),
        {location, UUID, name});
}

}  // namespace

std::optional<Error> writeFirstContents(const ProfileDatabase &profile, FirstContents contents) {
    if (std::optional<Error> error = writeInbox(profile)) {
        return error;
    }
    if (contents == FirstContents::Inbox) {
        return {};
    }
    const QList<FirstDatabase> databases = firstDatabases();
    QStringList UUIDs;
    for (const FirstDatabase &database : databases) {
        UUIDs.append(newUUID());
        if (std::optional<Error> error = writeDatabase(profile, database, UUIDs.last())) {
            return error;
        }
    }
    return writeLocation(profile, UUIDs.first(), localizedSyncString(databases.first().name));
}
