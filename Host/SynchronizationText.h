#pragma once

/// The name of a property of the application object, QCoreApplication::instance(): one line for the
/// user about how the synchronization of all databases stands while nothing runs, such as "All up
/// to date · next: today at 21:00". It is a QString with a NOTIFY signal. An application may leave
/// it out.
inline constexpr char SynchronizationTextKey[] = "synchronizationText";
