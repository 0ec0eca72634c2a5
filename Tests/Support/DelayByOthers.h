#pragma once

#include <QtCore/QFile>
#include <chrono>
#include <optional>

/// Returns how long the main thread of the process `id`, by default this one, has waited for a
/// processor because others used it; empty if there is no such process.
inline std::optional<std::chrono::nanoseconds> delayByOthers(
    const QString &id = QStringLiteral("self")) {
    QFile statistics(QStringLiteral("/proc/%1/schedstat").arg(id));
    if (!statistics.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    // The time on processors, the time waiting for one, and the number of turns.
    return std::chrono::nanoseconds(statistics.readAll().split(' ').value(1).toLongLong());
}
