#include "Platform/Interface/QVLocationEditing.h"

QVLocationEditing::~QVLocationEditing() = default;
