#pragma once

#include <QtCore/QString>

/// The name of the database in the folder of a profile. A folder without it is not a profile.
inline const QString ProfileDatabaseName = QStringLiteral("profile.sqlite");
