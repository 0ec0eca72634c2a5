#pragma once

#include <QtCore/QString>

#include "Host/QVDatabase.h"

/// The UUID that represents the inbox in every store and in the pane's list, regardless of its
/// local UUID. It is stored in profiles and stores, so it must not change.
inline const QString InboxUUID = QStringLiteral("@inbox");

/// Returns the UUID that represents `database` in every store: InboxUUID if it is `inbox`, which is
/// null if the profile has none. Databases are compared by their UUIDs.
inline QString UUIDInStores(const QVDatabase &database, const QVDatabase *inbox) {
    return inbox && inbox->UUID() == database.UUID() ? InboxUUID : database.UUID();
}
