#include "Platform/Interface/PaneSelection.h"

PaneSelection::~PaneSelection() = default;
