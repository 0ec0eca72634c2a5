#pragma once

#include "Host/QVSyncSchedule.h"

/// A schedule that never fires. It differs from having no schedule: it is stored, as the kind
/// "never", and its state keeps it. Immutable, thus thread-safe.
class EngineSchedule : public QVSyncSchedule {
public:
    bool isHourly() const override { return false; }
    bool isDaily() const override { return false; }
    bool isWeekly() const override { return false; }
    /// Always invalid.
    QDateTime nextScheduledDate() const override { return {}; }
};
