#pragma once

/// Timeout in milliseconds for events that a test waits for: much longer than they ever take, so
/// that no test fails on a busy computer.
inline constexpr int Patience = 60000;
