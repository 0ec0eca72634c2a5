#pragma once

#include "Platform/Foundation/Result.h"

/// The record of a database in a store's folder "databases". See Engine/Notes/StoreFormat.md.
namespace DatabaseRecord {

inline constexpr int Version = 1;

/// Where in a store it is.
QString path(const QString &databaseUUID);
QByteArray encoded(const QString &databaseUUID, const QString &name);
/// The name that `record` gives the database, or what is wrong with it: then an error of the code
/// DamagedRecord, or UnknownVersion for a record that must be left as it is. `place` is for a
/// person to read.
Result<QString> name(const QByteArray &record, const QString &databaseUUID, const QString &place);

}  // namespace DatabaseRecord
