#pragma once

#include <QtCore/QString>

/// Names of the notifications that the sync plug-in posts to the default centre, on the main
/// thread.

/// Object: the QVDatabase just opened.
inline const QString QVSyncPluginDidOpenDatabase = QStringLiteral("QVSyncPluginDidOpenDatabase");
/// Object: the QVDatabase being closed.
inline const QString QVSyncPluginDidCloseDatabase = QStringLiteral("QVSyncPluginDidCloseDatabase");
/// Object: the renamed QVDatabase, which has its new name already.
inline const QString QVDatabaseRenamedNotification =
    QStringLiteral("QVDatabaseRenamedNotification");
/// A schedule has fired; the object is the host's own affair.
inline const QString QVSyncScheduleDidFireNotification =
    QStringLiteral("QVSyncScheduleDidFireNotification");
