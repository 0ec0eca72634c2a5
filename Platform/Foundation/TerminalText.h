#pragma once

#include <QtCore/QString>

#include "Platform/Foundation/Expected.h"
#include "Platform/PlatformExport.h"

/// Shows texts as they are on a terminal, which would take control characters in them for commands.
/// Every text that holds a name or message from outside must go through one of these functions.
/// Thread-safe.
namespace TerminalText {

/// Returns `text` on one line: the control and format characters (Unicode categories Cc and Cf) and
/// line separators in it are replaced by escapes such as "\\u001B". The isolates U+2068 and U+2069,
/// which texts in languages from right to left have around names, are kept.
PLATFORM_EXPORT QString line(const QString &text);
/// Does the same, but keeps line feeds. JSON keeps its meaning.
PLATFORM_EXPORT QString lines(const QString &text);

/// Writes lines(text) to the standard output and flushes it. Blocks if the reader of the output is
/// slow. Returns an error if not everything could be written, for example because a disk is full.
/// The error's reason is that of the system.
PLATFORM_EXPORT Expected<void> print(const QString &text);

/// Writes line(text) and a line feed to the standard error output. Blocks if the reader of the
/// output is slow; a failure is ignored.
PLATFORM_EXPORT void printError(const QString &text);

}  // namespace TerminalText
