#pragma once

#include "Platform/KeyValue/ValueTransformer.h"

/// Converts the keychain account of an authorized client to the text of its row, a QString: the
/// account and, in a second line if the host knows it, when that client connected last. The text is
/// computed at each call and must be shown as plain text. Must be used on the main thread.
class ClientTextValueTransformer : public ValueTransformer {
public:
    /// Returns the type QString.
    QMetaType transformedValueClass() const override;
    /// `value` is the account, a QString.
    QVariant transformedValue(const QVariant &value) const override;
};
