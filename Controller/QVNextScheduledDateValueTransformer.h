#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// When a database synchronizes next by itself, as the schedule editor says it: a QDateTime,
/// invalid for never, to a string.
class QVNextScheduledDateValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
