#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVariantMap>
#include <functional>
#include <memory>

#include "Platform/PlatformExport.h"

class QObject;

/// The record of a binding through which a view writes its own changes back to a model. Views know
/// only this interface; what a record does with its options is up to the class that implements it.
///
/// Main thread. Records are shared; a view keeps its own until it is unbound.
class PLATFORM_EXPORT ViewBinding {
public:
    /// Makes a record that binds `key` of `object`, a view, to `keyPath` of `target`. The record
    /// does not observe anything yet. Never returns null.
    using Factory = std::function<std::shared_ptr<ViewBinding>(
        QObject *object, const QByteArray &key, QObject *target, const QByteArray &keyPath,
        const QVariantMap &options)>;

    virtual ~ViewBinding();

    /// The bound property of the view.
    virtual QByteArray key() const = 0;
    /// Sets the view's property to the model's value, and from then on writes each value that is
    /// set in the view to the model.
    virtual void bind() = 0;
    /// Stops writing. `bind` may be called again.
    virtual void unbind() = 0;
};
