#include "Engine/FirstProfile.h"

#include <QtCore/QDir>
#include <QtCore/QUuid>

#include "Engine/EngineError.h"
#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/Url.h"

namespace {

QString newUUID() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

bool addDatabase(ProfileDatabase &profile, const QString &UUID, const QString &name, int position,
                 bool isInbox) {
    return profile.execute(QStringLiteral("INSERT INTO databases VALUES (?, ?, ?, ?, 1)"),
                           {UUID, name, position, isInbox});
}

bool addNote(ProfileDatabase &profile, const QString &databaseUUID, int position,
             const QString &title, const QString &text) {
    return profile.execute(QStringLiteral("INSERT INTO notes VALUES (?, ?, ?, ?, ?, ?)"),
                           {newUUID(), databaseUUID, position, title, text,
                            QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)});
}

bool addInbox(ProfileDatabase &profile) {
    return addDatabase(profile, newUUID(), localizedSyncString("Inbox"), 0, true);
}

bool addExamples(ProfileDatabase &profile, const Url &store) {
    const QString projects = newUUID();
    const QString recipes = newUUID();
    return addInbox(profile) &&
           addDatabase(profile, projects, localizedSyncString("Projects"), 1, false) &&
           addNote(
               profile, projects, 1, localizedSyncString("Welcome"),
               localizedSyncString(
                   "Notes live in databases. Under Tools, Sync Preferences you choose where each "
                   "database synchronizes, and when.")) &&
           addNote(profile, projects, 2, localizedSyncString("Garden shed"),
                   localizedSyncString(
                       "Measure the roof. Ask for two offers. Order the timber by May.")) &&
           addDatabase(profile, recipes, localizedSyncString("Recipes"), 2, false) &&
           addNote(
               profile, recipes, 1, localizedSyncString("Bread"),
               localizedSyncString(
                   "500 g flour, 350 g water, 10 g salt, a little yeast. Fold, wait, bake hot.")) &&
           addNote(profile, recipes, 2, localizedSyncString("Lentil soup"),
                   localizedSyncString(
                       "Red lentils, carrots, cumin, a squeeze of lemon at the end.")) &&
           profile.execute(QStringLiteral("INSERT INTO locations (position, url) VALUES (0, ?)"),
                           {store.absoluteString()}) &&
           profile.execute(
               QStringLiteral(
                   "INSERT INTO states VALUES (?, 0, ?, ?, 1, NULL, NULL, NULL, 0, 0, NULL)"),
               {profile.lastInsertId(), projects, localizedSyncString("Projects")});
}

}  // namespace

std::optional<Error> fillFirstProfile(ProfileDatabase &profile) {
    const QString package = QStringLiteral("%1/Sync Stores/%2.qvSyncStore")
                                .arg(profile.folder(), localizedSyncString("Home"));
    if (!QDir().mkpath(package + QStringLiteral("/databases")) ||
        !QDir().mkpath(package + QStringLiteral("/transactions"))) {
        return engineError(EngineErrorCode::ProfileUnusable,
                           localizedSyncString("The folder %1 cannot be made.").arg(package));
    }
    return profile.transaction([&] { return addExamples(profile, Url::fileURL(package)); });
}

std::optional<Error> fillEmptyProfile(ProfileDatabase &profile) {
    return profile.transaction([&] { return addInbox(profile); });
}
