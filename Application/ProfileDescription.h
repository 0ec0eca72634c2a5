#pragma once

#include <QtCore/QJsonObject>

#include "Platform/Foundation/Expected.h"

class NoteLibrary;

/// Returns the open profile as JSON: databases, locations, how they synchronize, and the granted
/// folders. Contains no passwords: those in URLs are removed. Fails if the notes of a database
/// cannot be read. Must be called on the main thread; reads every note, so it may take seconds for
/// large profiles.
Expected<QJsonObject> describeProfile(const NoteLibrary &library);
