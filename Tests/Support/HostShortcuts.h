#pragma once

#include <memory>

#include "Host/QVSyncSchedule.h"

class QVSyncLocation;

enum class Debugging { Off, Normal, High };

/// Sets the two defaults that ask for diagnostic messages.
void setDebugging(Debugging debugging);

QVSyncSchedulePtr dailySchedule(int hour, int minute);

/// Writes the record of a database into the folder store at `location`.
void putDatabaseRecord(const std::shared_ptr<QVSyncLocation> &location, const QString &UUID,
                       const QString &name);
