#pragma once

#include <QtCore/QString>

/// Reads the next command in a process that is controlled by a test through its standard input.
/// Blocks until there is a line. Returns it without the line break, or "end" at the end of the
/// input. Does not read ahead, so that a QSocketNotifier notices the following lines.
QString nextCommand();
