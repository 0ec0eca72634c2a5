#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVariant>

#include "Platform/PlatformExport.h"

namespace KeyValue {

/// The option that names the ValueTransformer through which a binding passes the values it carries.
inline constexpr char valueTransformerNameOption[] = "NSValueTransformerName";

enum class Direction {
    FromModel,  ///< the target's key follows the model
    BothWays,   ///< and what the person changes in the target is written to the model
};

/// Makes `key` of `target` follow `keyPath` of `observed`: sets it now and after each announcement.
/// The binding belongs to `target` and ends with `unbind`, with `target`, or quietly with
/// `observed`. BothWays writes the target's value to the model when the target announces one that
/// differs, and shows what the model made of it where that differs in turn; it takes no
/// transformer. What cannot be bound raises an AssertionFailure and leaves no binding.
PLATFORM_EXPORT void bind(QObject *target, const QByteArray &key, QObject *observed,
                          const QByteArray &keyPath, const QVariantMap &options = {},
                          Direction direction = Direction::FromModel);

/// Ends every binding of `key`; the target keeps its value. Harmless where there is none.
PLATFORM_EXPORT void unbind(QObject *target, const QByteArray &key);

}  // namespace KeyValue
