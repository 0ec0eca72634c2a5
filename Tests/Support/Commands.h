#pragma once

#include <QtCore/QString>

/// For a process that does what the test that started it writes to its standard input: waits for
/// the next line, and returns it without its end; "end" where there are no more. Reads no further
/// than that, so that a QSocketNotifier notices what follows.
QString nextCommand();
