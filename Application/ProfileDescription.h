#pragma once

#include <QtCore/QJsonObject>

#include "Platform/Foundation/Expected.h"

class NoteLibrary;

/// The open profile as JSON: databases, locations, how they synchronize, and the folders
/// granted. Without secrets:
/// passwords in URLs are left out.
Expected<QJsonObject> describeProfile(const NoteLibrary &library);
