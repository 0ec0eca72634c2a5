#pragma once

#include <QtCore/QJsonObject>

#include "Platform/Foundation/Expected.h"

class NoteLibrary;

/// Returns the open profile as JSON: databases, locations, how they synchronize, and the granted
/// folders. Contains neither passwords (those in URLs are removed) nor the contents of notes, only
/// their number. Dates are in UTC (ISO 8601); titles and types are localized, all other texts are
/// not. Fails if the notes of a database cannot be read. The sync plug-in must be loaded. Must be
/// called on the main thread; reads every note, so it may take seconds for large profiles.
Expected<QJsonObject> describeProfile(const NoteLibrary &library);
