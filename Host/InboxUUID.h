#pragma once

#include <QtCore/QString>

/// The UUID that represents the inbox in every store and in the pane's list, regardless of its
/// local UUID. It is stored in profiles and stores, so it must not change.
inline const QString InboxUUID = QStringLiteral("@inbox");
