#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts a std::shared_ptr<QVSyncLocation> to its title, a QString. A null pointer or another
/// type gives an invalid variant. Must be used on the main thread.
class QVLocationTitleValueTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override;
    QVariant transformedValue(const QVariant &value) const override;
};
