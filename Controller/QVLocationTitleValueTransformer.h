#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts a std::shared_ptr<QVSyncLocation> to its title, a QString. A null pointer or another
/// type gives an invalid variant. The title is never empty, is computed at each call, and must be
/// shown as plain text, because it comes from a URL. Must be used on the main thread.
class QVLocationTitleValueTransformer : public ValueTransformer {
public:
    /// Returns the type QString.
    QMetaType transformedValueClass() const override;
    /// Does not block. `value` is not kept.
    QVariant transformedValue(const QVariant &value) const override;
};
