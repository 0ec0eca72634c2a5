#pragma once

#include <QtCore/QtGlobal>
#include <chrono>

/// Resource limits of a direct-connection server.
struct DirectConnectionLimits {
    /// Maximum number of connections. Beyond it, the oldest connection that is not authorized is
    /// closed; if there is none, the new one.
    qsizetype connections = 32;
    /// Timeout from the connection to a greeting or a pairing request.
    std::chrono::milliseconds greetingTime = std::chrono::seconds(10);
    /// Timeout for the user's answer.
    std::chrono::milliseconds askingTime = std::chrono::minutes(2);
    /// Timeout without received data from an authorized client.
    std::chrono::milliseconds idleTime = std::chrono::minutes(5);
    /// Time in which the user is not asked again after refusing a client.
    std::chrono::milliseconds pauseAfterRefusal = std::chrono::seconds(10);
};
