#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <memory>

#include "Platform/PlatformExport.h"

/// Turns the values that a binding carries from model to view into another form. Stateless.
class PLATFORM_EXPORT ValueTransformer {
public:
    virtual ~ValueTransformer();

    /// The type of what `transformedValue` answers.
    virtual QMetaType transformedValueClass() const = 0;
    /// An invalid variant stands for an absent value, in and out.
    virtual QVariant transformedValue(const QVariant &value) const = 0;

    /// Makes `transformer` known for the rest of the program; a later one replaces an earlier one
    /// of the same name. "NSIsNil", "NSIsNotNil" and "NSNegateBoolean" are known from the start.
    static void setTransformerForName(std::unique_ptr<ValueTransformer> transformer,
                                      const QString &name);
    /// Raises an AssertionFailure where there is none of that name.
    static const ValueTransformer *transformerForName(const QString &name);
};
