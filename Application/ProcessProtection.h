#pragma once

#include "Platform/Foundation/Expected.h"

/// Keeps the memory of this process from other programs of the user, and from files.
namespace ProcessProtection {

/// Makes the process write no core file, and prevents other processes of the user from reading its
/// memory (see PR_SET_DUMPABLE in prctl(2)). Must be called at the start of the program. Tries both
/// even if one fails.
Expected<void> apply();

}  // namespace ProcessProtection
