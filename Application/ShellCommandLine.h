#pragma once

#include "Platform/Foundation/Expected.h"

class VelmoraApplication;
struct LaunchOptions;
class SyncPlugIn;

/// The commands of the command line. Must be used on the main thread.
namespace ShellCommandLine {

/// Returns an error for the user unless the profile folder of `options` can be read and contains
/// anything: the commands, and “verify”, make no new profile.
Expected<void> findProfile(const LaunchOptions &options, const SyncPlugIn &sync);

/// Carries out the command of `options`, which must be set: asks the process that shows the windows
/// of the profile, or opens the profile if there is none. Prints the result and returns the exit
/// code. Runs the event loop.
int run(VelmoraApplication &application, const LaunchOptions &options, SyncPlugIn &sync);

/// Lets the process find the user's session, also if it was not started in one, as by cron. Must
/// be called before other threads are started.
void enterSession();

}  // namespace ShellCommandLine
