#pragma once

#include <QtCore/QString>

/// The names in a sync store: a folder with an extension of its own that holds one folder of
/// database records and one of transaction records. In Host, because the preference pane makes and
/// selects such folders and the engine reads and writes them. See Engine/Notes/StoreFormat.md.
namespace SyncStoreLayout {

/// The extension of the folder, without the dot.
inline const QString Extension = QStringLiteral("qvSyncStore");
/// The folder of database records, each named by the UUID of its database and RecordEnding.
inline const QString DatabasesFolder = QStringLiteral("databases");
/// The folder of transaction records: one folder per database, named by its UUID.
inline const QString TransactionsFolder = QStringLiteral("transactions");
/// The end of the file name of every record.
inline const QString RecordEnding = QStringLiteral(".json");

}  // namespace SyncStoreLayout
