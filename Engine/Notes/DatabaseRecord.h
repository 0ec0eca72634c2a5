#pragma once

#include <optional>

#include "Platform/Foundation/Expected.h"

/// The record of a database in the folder "databases" of a store. The format is defined in
/// Engine/Notes/StoreFormat.md. Thread-safe.
namespace DatabaseRecord {

/// The version of the format that this program reads and writes.
inline constexpr int Version = 1;

/// Returns whether `text` can identify a database in a store: a UUID in lower case, or InboxUUID.
bool isUUID(const QString &text);
/// Returns the name of the blob that holds the record.
QString path(const QString &databaseUUID);
/// Returns the UUID of the database whose record has the name `file` in its folder, or an empty
/// optional if no record can have it.
std::optional<QString> databaseUUID(const QString &file);
/// Returns the record of a database.
QByteArray encoded(const QString &databaseUUID, const QString &name);
/// Returns the name of the database in `record`, which may be hostile. Errors have the code
/// DamagedRecord, or UnknownVersion for a record that a newer program wrote and that must not be
/// changed. `place` names the record in the error.
Expected<QString> name(const QByteArray &record, const QString &databaseUUID, const QString &place);

}  // namespace DatabaseRecord
