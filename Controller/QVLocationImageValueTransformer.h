#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts a std::shared_ptr<QVSyncLocation> to its icon, a QPixmap. A null pointer or another
/// type gives an invalid variant. Must be used on the main thread.
class QVLocationImageValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
