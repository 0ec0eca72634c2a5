#pragma once

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <memory>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/PlatformExport.h"

/// Announces when texts that are relative to the current day, such as those of
/// relativeDateString(), must be computed again: at midnight of the local time zone, and when the
/// clock of the computer is set. Must be used on the main thread, which must run an event loop.
class PLATFORM_EXPORT DayChange : public QObject {
    Q_OBJECT
public:
    /// Returns the object that all users share; never null. It exists as long as one of them does.
    /// Connect to it and hold the pointer as long as the texts are shown.
    static std::shared_ptr<DayChange> shared();

Q_SIGNALS:
    /// Emitted from the event loop; also if the clock was set within the same day. After the
    /// computer was asleep at midnight, it is emitted once when it wakes up. A change of the time
    /// zone alone is not noticed. Never emitted if the system cannot make another timer.
    void occurred();

private:
    DayChange();
    /// Sets the timer to the next midnight.
    void waitForMidnight();
    /// Handles the end of the timer.
    void timerEnded();

    /// A timer of the system's clock; closed if the system has none to offer, and nothing is
    /// announced.
    FileDescriptor m_timer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
