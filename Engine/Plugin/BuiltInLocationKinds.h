#pragma once

#include "Engine/Locations/EngineLocationKinds.h"

class EngineContext;

/// Returns the table of all kinds of locations that the engine reaches. Another kind is another
/// entry here, a store class, and a form with its menu entry in the preference pane.
/// The table shares the ownership of what the stores need of `context`.
EngineLocationKinds builtInLocationKinds(const EngineContext &context);
