#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts a std::shared_ptr<QVSyncLocation> to its icon, a QPixmap. A null pointer or another
/// type gives an invalid variant. The icon is made at each call and does not follow later changes
/// of the location; a nil URL has an icon of its own. Must be used on the main thread.
class QVLocationImageValueTransformer : public ValueTransformer {
public:
    /// Returns the type QPixmap.
    QMetaType transformedValueClass() const override;
    /// Does not block. `value` is not kept.
    QVariant transformedValue(const QVariant &value) const override;
};
