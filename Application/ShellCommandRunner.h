#pragma once

#include <functional>

#include "Application/ShellCommand.h"

class NoteLibrary;

/// Carries out commands in a process that has opened the profile. Must be used on the main thread.
namespace ShellCommandRunner {

using Handler = std::function<void(const ShellResult &result)>;

/// Starts `command` and returns at once. `handler` is called once, later, from the event loop; it
/// is not called if the profile is closed before. `library` is not owned and must exist until then.
void run(const ShellCommand &command, const NoteLibrary &library, const Handler &handler);

}  // namespace ShellCommandRunner
