#pragma once

#include <QtCore/QJsonObject>

class NoteLibrary;

/// The open profile as JSON: databases, locations, how they synchronize, and the folders
/// granted. Without secrets:
/// passwords in URLs are left out.
QJsonObject describeProfile(const NoteLibrary &library);
