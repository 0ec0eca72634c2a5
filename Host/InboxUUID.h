#pragma once

#include <QtCore/QString>

/// The UUID that represents the inbox in every store and in the pane's list, regardless of its
/// local UUID.
inline const QString InboxUUID = QStringLiteral("@inbox");
