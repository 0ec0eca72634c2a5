#pragma once

#include "Platform/Foundation/Log.h"

/// The category of the messages of syncLog().
inline constexpr char SyncLogCategory[] = "sync";

/// Returns the diagnostic log of the sync plug-in and the pane, which the user defaults
/// "QVSyncDebug" and "QVSyncDebugHigh" switch on. Thread-safe.
inline const Log &syncLog() {
    static const Log log(SyncLogCategory, QStringLiteral("QVSyncDebug"),
                         QStringLiteral("QVSyncDebugHigh"));
    return log;
}
