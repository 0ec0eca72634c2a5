#pragma once

#include <QtCore/QByteArrayList>

#include "Support/ScriptedServer.h"

/// What a store may contain to keep its reader busy.
namespace HostileStore {

/// The path of the store at a server.
inline const QString Path = QStringLiteral("a.qvSyncStore");

/// Returns the script of a WebDAV server with a store of `count` databases, whose names have
/// `nameSize` characters. To be used for all connections at once.
ScriptedServer::Script databases(int count, int nameSize);
/// Returns the records of `count` edits of one note, none of which has seen another. Each record
/// has at most 10,000 of them.
QByteArrayList conflictingEdits(int count);
/// Returns `count` records, each with an edit of the same note of the largest size.
QByteArrayList largeEdits(int count);
/// Returns `count` records, each with the only edit of another note.
QByteArrayList smallRecords(int count);
/// Writes `records` into the folder of the inbox's transactions in the store at `path`.
void writeRecords(const QString &path, const QByteArrayList &records);

}  // namespace HostileStore
