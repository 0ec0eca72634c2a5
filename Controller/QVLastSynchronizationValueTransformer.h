#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// When a database was last synchronized, as its row says it: a QDateTime, invalid for never, to a
/// string.
class QVLastSynchronizationValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
