#pragma once

#include <QtCore/QString>
#include <functional>

#include "Platform/Foundation/Expected.h"

/// Copies of profiles, for reading them beside the process that uses them.
namespace ProfileSnapshot {

/// Writes a consistent copy of the database of the profile in `directory` into the folder `target`,
/// without changing the profile. If there is no profile yet, `create` is called to make it. Works
/// while another process uses the profile. Blocks until the copy is complete, and up to ten seconds
/// if another process is creating the profile. Must be called on the main thread.
Expected<void> write(const QString &directory, const QString &target,
                     const std::function<Expected<void>()> &create);

}  // namespace ProfileSnapshot
