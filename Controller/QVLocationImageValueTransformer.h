#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Turns a QVSyncLocation (by shared pointer) into its icon, a QPixmap.
class QVLocationImageValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
