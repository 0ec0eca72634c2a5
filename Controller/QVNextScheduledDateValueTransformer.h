#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts the date of the next scheduled synchronization (QDateTime) to the localized text of the
/// schedule editor. The text is relative to the current time. An invalid date means that none is
/// scheduled.
class QVNextScheduledDateValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
