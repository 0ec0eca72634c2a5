#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVariant>

#include "Platform/PlatformExport.h"

class QObject;

/// A view that implements binding of its keys itself, instead of KeyValue::bind. Must be used on
/// the main thread. Nib calls bind() for a view that implements this interface.
class PLATFORM_EXPORT BindableView {
public:
    virtual ~BindableView();

    /// Binds the view's key `binding` to `keyPath` of `observable`. `observable` is not owned; the
    /// binding does nothing any more once it is destroyed. `options` are those of KeyValue::bind.
    /// Raises an AssertionFailure for keys that do not exist.
    virtual void bind(const QByteArray &binding, QObject *observable, const QByteArray &keyPath,
                      const QVariantMap &options) = 0;
    /// Ends the bindings of `binding`. Has no effect if there are none.
    virtual void unbind(const QByteArray &binding) = 0;
};
