#include "Platform/Interface/ViewBinding.h"

ViewBinding::~ViewBinding() = default;
