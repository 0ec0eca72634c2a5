#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVariant>

#include "Platform/PlatformExport.h"

class QObject;

/// A view that has a say in how its keys are bound. Others are bound by KeyValue::bind.
class PLATFORM_EXPORT BindableView {
public:
    virtual ~BindableView();

    /// Makes the view's `binding` follow `keyPath` of `observable`, which must outlive the binding.
    virtual void bind(const QByteArray &binding, QObject *observable, const QByteArray &keyPath,
                      const QVariantMap &options) = 0;
    virtual void unbind(const QByteArray &binding) = 0;
};
