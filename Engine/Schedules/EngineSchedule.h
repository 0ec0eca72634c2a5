#pragma once

#include "Host/QVSyncSchedule.h"

/// A schedule that never fires. Immutable, thus thread-safe.
class EngineSchedule : public QVSyncSchedule {
public:
    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    QDateTime nextScheduledDate() const override { return {}; }
};
