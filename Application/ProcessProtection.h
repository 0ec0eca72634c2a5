#pragma once

#include "Platform/Foundation/Expected.h"

/// Keeps the memory of this process from other programs of the user, and from files.
namespace ProcessProtection {

/// Whether other processes of the user may read the memory.
enum class Debuggers { Refused, Allowed };

/// Makes the process write no core file, and prevents other processes of the user from reading its
/// memory unless that is allowed (see PR_SET_DUMPABLE in prctl(2)); root still can. Must be called
/// at the start of the program, before secrets are read. Tries both even if one fails, and then
/// returns an error for the user; the program can go on. If they are refused, debuggers cannot
/// attach afterwards, and files of the process below /proc belong to root.
Expected<void> apply(Debuggers debuggers = Debuggers::Refused);

}  // namespace ProcessProtection
