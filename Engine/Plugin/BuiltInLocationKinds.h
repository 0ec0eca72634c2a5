#pragma once

#include "Engine/Locations/EngineLocationKinds.h"

class EngineContext;

/// Returns the table of all kinds of locations that the engine supports. To support another kind,
/// add an entry here, a store class, and an editor with its menu entry in the preference pane. The
/// table shares ownership of the parts of `context` that its stores need. Must be called on the
/// main thread.
QList<EngineLocationKind> builtInLocationKinds(const EngineContext &context);
