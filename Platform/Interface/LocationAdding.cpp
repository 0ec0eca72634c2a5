#include "Platform/Interface/LocationAdding.h"

LocationAdding::~LocationAdding() = default;
