#pragma once

#include "Engine/ProfileDatabase.h"

/// Fills a fresh profile with what a person finds at the first start: the inbox, two databases with
/// a few notes, and a folder beside them to synchronize with.
std::optional<Error> fillFirstProfile(ProfileDatabase &profile);

/// Fills a fresh profile with its inbox alone.
std::optional<Error> fillEmptyProfile(ProfileDatabase &profile);
