#pragma once

#include <QtCore/QtGlobal>
#include <chrono>

/// What a direct-connection server lets others take of it. A value.
struct DirectConnectionLimits {
    /// Beyond it the oldest one that is not authorized gives way; where there is none, the new one.
    qsizetype connections = 32;
    /// From connecting to a greeting or a request to be authorized.
    std::chrono::milliseconds greetingTime = std::chrono::seconds(10);
    /// For the person's answer.
    std::chrono::milliseconds askingTime = std::chrono::minutes(2);
    /// Without a byte from an authorized client.
    std::chrono::milliseconds idleTime = std::chrono::minutes(5);
    /// In which nobody is asked, after the person has refused somebody.
    std::chrono::milliseconds pauseAfterRefusal = std::chrono::seconds(10);
};
