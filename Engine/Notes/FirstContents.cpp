#include "Engine/Notes/FirstContents.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUuid>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/FullDisk.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ProfileFolder.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/SystemError.h"
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

Expected<void> writeInbox(const ProfileDatabase &profile) {
    return profile.run(
        QStringLiteral("INSERT INTO databases (uuid, name, is_inbox) VALUES (?, ?, 1)"),
        {newUUID(), localizedSyncString("Inbox")});
}

/// Name space of the UUIDs of the examples.
const QUuid Examples(QStringLiteral("6f0c9a52-83d1-5b7e-9d0e-3c1f5a8e2b47"));

QString exampleUUID(const QString &contents) {
    return QUuid::createUuidV5(Examples, contents).toString(QUuid::WithoutBraces);
}

/// Returns the same operation on every computer. Any edit is later than it.
Operation example(const QString &note, const QString &title, const QString &text = {}) {
    Operation operation{{}, note, title, text, {}, {}, QByteArray(Operation::IdentifierSize, '\0')};
    operation.id = operation.computedId();
    return operation;
}

/// Writes a database that is the same in every new profile whose user has the same language, so
/// that the examples of two computers do not appear twice after a synchronization. Returns its
/// UUID.
Expected<QString> writeDatabase(const ProfileDatabase &profile, const FirstDatabase &database) {
    const QString name = localizedSyncString(database.name);
    QString contents = name;
    Transaction transaction{{example({}, name)}, {}};
    for (const FirstNote &first : database.notes) {
        const QString title = localizedSyncString(first.title);
        const QString text = localizedSyncString(first.text);
        contents += u'\n' + title + u'\n' + text;
        transaction.operations.append(example(exampleUUID(contents), title, text));
    }
    QString UUID = exampleUUID(QStringLiteral("database\n") + contents);
    return NoteLog::insertDatabase(profile, UUID, name)
        // Merged, not saved: an edit must supersede them, since other profiles have them, too.
        .and_then([&](qint64 row) { return NoteLog(profile, row).merge(transaction); })
        .map([&] { return UUID; });
}

/// Creates a folder, which an interrupted first start may have left.
Expected<void> makeFolder(const QString &path) {
    const Expected<void> created = FileManager::createDirectory(path);
    const QFileInfo folder(path);
    if (created || (folder.isDir() && !folder.isSymLink())) {
        return {};
    }
    return failure(isDiskFull(created.error())
                       ? engineError(EngineErrorCode::ProfileUnusable, FullDisk::message(path))
                       : storeNotCreated(EngineErrorCode::ProfileUnusable, path));
}

/// Creates a sync store in the profile folder, with which the database `UUID` synchronizes.
Expected<void> writeLocation(const ProfileDatabase &profile, const QString &UUID,
                             const QString &name) {
    const QString stores = profile.directory() + u'/' + ProfileFolder::SyncStoresName;
    const QString package = stores + QStringLiteral("/Home.") + SyncStoreLayout::Extension;
    for (const QString &folder : QStringList{stores} + SyncStoreLayout::foldersOfStore(package)) {
        if (Expected<void> made = makeFolder(folder); !made) {
            return made;
        }
    }
    const QString location = newUUID();
    return profile
        .run(QStringLiteral("INSERT INTO locations (uuid, position, url) VALUES (?, 0, ?)"),
             {location, Url::fileURL(package).absoluteString()})
        .and_then([&] {
            return profile.run(
                QStringLiteral(
                    "INSERT INTO states (location_uuid, database_uuid, database_name, enabled,"
                    " sync_on_open, sync_on_close) VALUES (?, ?, ?, 1, 0, 0)"),
                {location, UUID, name});
        });
}

Expected<void> writeWelcome(const ProfileDatabase &profile) {
    const QList<FirstDatabase> databases = firstDatabases();
    QStringList UUIDs;
    for (const FirstDatabase &database : databases) {
        const Expected<QString> UUID = writeDatabase(profile, database);
        if (!UUID) {
            return failure(UUID.error());
        }
        UUIDs.append(*UUID);
    }
    return writeLocation(profile, UUIDs.first(), localizedSyncString(databases.first().name));
}

}  // namespace

Expected<void> writeFirstContents(const ProfileDatabase &profile, FirstContents contents) {
    Expected<void> written = writeInbox(profile);
    return contents == FirstContents::Inbox
               ? written
               : written.and_then([&] { return writeWelcome(profile); });
}
