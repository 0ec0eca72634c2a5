#pragma once

#include <QtCore/QString>

/// Names of the notifications that a host posts to NotificationCenter::defaultCenter(), always on
/// the main thread and after the change that they report is in effect.

/// Posted after a database was opened or created. The object is the QVDatabase, which
/// QVDatabase::databases() contains.
inline const QString QVSyncPluginDidOpenDatabase = QStringLiteral("QVSyncPluginDidOpenDatabase");
/// Posted when a database was closed. The object is the QVDatabase, which QVDatabase::databases()
/// does not contain any more.
inline const QString QVSyncPluginDidCloseDatabase = QStringLiteral("QVSyncPluginDidCloseDatabase");
/// Posted after a database was renamed, by the user or by a synchronization. The object is the
/// QVDatabase, whose `name` is the new one.
inline const QString QVDatabaseRenamedNotification =
    QStringLiteral("QVDatabaseRenamedNotification");
/// Posted when a schedule has fired, so that displayed dates can be updated. The object is not
/// specified and may be null.
inline const QString QVSyncScheduleDidFireNotification =
    QStringLiteral("QVSyncScheduleDidFireNotification");
