#pragma once

#include <QtCore/QByteArray>

/// What is written if the process crashes, so that a report is complete although a host has failed.
/// Must be used on the main thread; a crash of any thread is noticed.
namespace CrashReport {

/// Makes the process write a text to the standard output before it is ended by a signal of a crash.
void install();
/// Sets that text; nothing is written while it is empty, as it is at first.
void setText(const QByteArray &text);

}  // namespace CrashReport
