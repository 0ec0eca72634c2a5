#pragma once

#include <functional>

/// Calls `body` on a thread of its own, on which the system call `number` fails with the errno
/// value `error`, and waits for it.
void runWithFailingSystemCall(int number, int error, const std::function<void()> &body);
