#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVariant>

#include "Platform/PlatformExport.h"

namespace KeyValue {

/// Option with the name of the ValueTransformer that converts each value on its way from the model
/// to the target.
inline constexpr char valueTransformerNameOption[] = "NSValueTransformerName";

/// Which side of a binding follows the other.
enum class Direction {
    /// The target's key follows the model.
    FromModel,
    /// Additionally, each change that the target announces is written to the model.
    BothWays,
};

/// Binds `key` of `target` to `keyPath` of `observed`: sets the key before returning and after each
/// announcement of the path, equal values included.
///
/// With BothWays, a value that the target announces is written to the model if it differs from the
/// model's; if the model then holds another value (for example, a normalized one), that is shown in
/// turn. If an object on the path is null, nothing is written. BothWays cannot be combined with a
/// transformer. A key may have several bindings: the last announcement wins, and each model that is
/// bound with BothWays receives it.
///
/// Neither object is owned. The binding is a child of `target`; it ends with unbind() or when
/// `target` is destroyed, and does nothing any more once `observed` is destroyed. Either object may
/// be deleted during a delivery.
///
/// Raises an AssertionFailure, and leaves no binding, if an object is null, a key or transformer
/// does not exist, the value does not fit the key, or a transformer is given with BothWays. Both
/// objects must live on the calling thread.
PLATFORM_EXPORT void bind(QObject *target, const QByteArray &key, QObject *observed,
                          const QByteArray &keyPath, const QVariantMap &options = {},
                          Direction direction = Direction::FromModel);

/// Ends every binding of `key`; the target keeps its value. Has no effect if there is none.
/// `target` must not be null. O(number of the target's children).
PLATFORM_EXPORT void unbind(QObject *target, const QByteArray &key);

}  // namespace KeyValue
