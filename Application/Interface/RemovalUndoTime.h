#pragma once

#include <chrono>

/// Time in which the removal of a location can be undone. The application offers to undo it as
/// long, and the engine keeps what belongs to the location, such as its password.
inline constexpr std::chrono::minutes RemovalUndoTime{10};
