#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <memory>

#include "Platform/PlatformExport.h"

/// Converts the values that a binding carries from the model to the view. Implementations are
/// stateless and are used on the main thread.
class PLATFORM_EXPORT ValueTransformer {
public:
    virtual ~ValueTransformer();

    /// Returns the type of the results of transformedValue().
    virtual QMetaType transformedValueClass() const = 0;
    /// Returns the converted value. An invalid variant means "no value", as argument and as result.
    /// Must not block.
    virtual QVariant transformedValue(const QVariant &value) const = 0;

    /// Registers `transformer`, which must not be null, until the program ends. Replaces and
    /// deletes an earlier one of the same name. "NSIsNil", "NSIsNotNil" and "NSNegateBoolean" are
    /// predefined.
    static void setTransformerForName(std::unique_ptr<ValueTransformer> transformer,
                                      const QString &name);
    /// Returns the transformer of that name. Never null; not owned by the caller, and valid until
    /// it is replaced. Raises an AssertionFailure if there is none.
    static const ValueTransformer *transformerForName(const QString &name);
};
