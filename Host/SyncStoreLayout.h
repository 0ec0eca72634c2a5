#pragma once

#include <QtCore/QStringList>

/// The names in a sync store: a folder with an extension of its own that holds one folder of
/// database records and one of transaction records. The pane makes and selects such folders, so a
/// host must recognize them. Their contents are up to the host.
namespace SyncStoreLayout {

/// The extension of the folder, without the dot.
inline const QString Extension = QStringLiteral("qvSyncStore");
/// The folder of database records, each named by the UUID of its database and RecordEnding.
inline const QString DatabasesFolder = QStringLiteral("databases");
/// The folder of transaction records: one folder per database, named by its UUID.
inline const QString TransactionsFolder = QStringLiteral("transactions");
/// The end of the file name of every record.
inline const QString RecordEnding = QStringLiteral(".json");

/// Returns the paths of the folders of an empty sync store at `path`, in the order in which they
/// must be created.
inline QStringList foldersOfStore(const QString &path) {
    return {path, path + u'/' + DatabasesFolder, path + u'/' + TransactionsFolder};
}

}  // namespace SyncStoreLayout
