#pragma once

#include <QtCore/QJsonObject>

class NoteLibrary;

/// The open profile as JSON: databases, locations, and how they synchronize. Without secrets:
/// passwords in URLs are left out.
QJsonObject describeProfile(const NoteLibrary &library);
