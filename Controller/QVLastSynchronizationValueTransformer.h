#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts the date of the last synchronization (QDateTime) to the localized text of a database
/// row. The text is relative to the current time, so it must be computed again to stay correct. An
/// invalid date means "never".
class QVLastSynchronizationValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
