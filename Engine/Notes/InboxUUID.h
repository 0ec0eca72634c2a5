#pragma once

#include <QtCore/QString>

/// Under which the inbox of every profile synchronizes, whatever its own UUID.
inline const QString InboxUUID = QStringLiteral("@inbox");
