#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// The names of transaction records in a store, such as "UUID.json", and of their folder. The
/// format is defined in Engine/Notes/StoreFormat.md. Thread-safe.
namespace TransactionName {

/// Returns the folder of the transaction records of a database in every store. The other functions
/// are about names without it.
QString folder(const QString &databaseUUID);
/// Returns the name for `record`: a UUID of version 8 that consists of its SHA-256 digest.
QString of(const QByteArray &record);
/// Returns whether `name` can be that of a transaction record.
bool isValid(const QString &name);
/// Returns false if `name`, which must be valid, contains a digest that is not that of `record`.
/// Names that other versions of the program have given contain none.
bool matches(const QString &name, const QByteArray &record);
/// Returns whether `name`, which must be valid, contains a digest.
bool hasDigest(const QString &name);
/// Returns the name under which the damaged `record` is kept that was found under `name`. No reader
/// takes it for a record. Another `attempt`, from 0 on, results in another name.
QString ofDamaged(const QString &name, const QByteArray &record, int attempt = 0);
/// Returns whether `name` is one that ofDamaged() returns.
bool isOfDamaged(const QString &name);

}  // namespace TransactionName
