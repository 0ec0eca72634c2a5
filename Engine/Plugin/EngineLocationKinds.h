#pragma once

#include "Engine/Locations/LocationKinds.h"

/// Returns the table of all kinds of locations that the engine reaches. Another kind is another
/// entry here, a store class, and a form with its menu entry in the preference pane.
LocationKinds engineLocationKinds();
