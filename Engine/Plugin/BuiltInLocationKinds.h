#pragma once

#include "Engine/Locations/EngineLocationKinds.h"

class EngineContext;

/// Returns the table of all kinds of locations that the engine supports; CONTRIBUTING.md says how
/// to add one. The table shares ownership of the parts of `context` that its stores need. Must be
/// called on the main thread.
QList<EngineLocationKind> builtInLocationKinds(const EngineContext &context);
