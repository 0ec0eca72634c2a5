#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Turns a QVSyncLocation (by shared pointer) into its title, a string.
class QVLocationTitleValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
