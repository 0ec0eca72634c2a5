#pragma once

#include <functional>
#include <optional>

#include "Platform/Foundation/Error.h"

class ProfileDatabase;

/// Brings a profile of an older version up to date.
namespace ProfileUpgrade {

/// From version 1, which kept notes as rows and no operations. `makeTables` makes the tables that
/// are not there yet. Within the caller's transaction.
std::optional<Error> run(const ProfileDatabase &profile,
                         const std::function<std::optional<Error>()> &makeTables);

}  // namespace ProfileUpgrade
