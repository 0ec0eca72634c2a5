#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVariantMap>
#include <functional>
#include <memory>

#include "Platform/PlatformExport.h"

class QObject;

/// The record of a binding through which a view writes its own changes back to a model. Views
/// depend only on this interface; the implementing class defines the options.
///
/// Must be used on the main thread. Shared ownership; a view keeps its records until they are
/// unbound. The implementing class determines whether a record keeps the view and the model alive.
class PLATFORM_EXPORT ViewBinding {
public:
    /// Returns a new record that binds `key` of `object`, a view, to `keyPath` of `target`. The
    /// record does not observe anything yet. Never returns null.
    using Factory = std::function<std::shared_ptr<ViewBinding>(
        QObject *object, const QByteArray &key, QObject *target, const QByteArray &keyPath,
        const QVariantMap &options)>;

    virtual ~ViewBinding();

    /// Returns the name of the bound property of the view.
    virtual QByteArray key() const = 0;
    /// Sets the view's property to the model's value and from then on writes each value that is set
    /// in the view to the model. Raises an AssertionFailure if the key or path does not exist.
    virtual void bind() = 0;
    /// Stops writing. Idempotent. bind() may be called again. May be called while a value is being
    /// written.
    virtual void unbind() = 0;
};
