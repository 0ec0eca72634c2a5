#pragma once

/// How long a test waits for what must come, in milliseconds: far longer than it ever takes, so
/// that a busy computer fails no test.
inline constexpr int Patience = 60000;
