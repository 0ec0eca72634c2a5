#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "Platform/KeyValue/Binding.h"
#include "Platform/PlatformExport.h"

/// The name of an object and, behind its first point, a key path from it.
struct PLATFORM_EXPORT NibPath {
    QString object;
    QByteArray keyPath;

    /// Of "object.key.key"; the key path is empty where there is no point.
    static NibPath parse(const QString &text);
};

/// One entry of a form's `bindings`.
struct PLATFORM_EXPORT NibBinding {
    QByteArray key;
    NibPath path;
    QString transformer;  ///< empty: none
    KeyValue::Direction direction = KeyValue::Direction::FromModel;

    /// Raises an AssertionFailure for what is not a binding.
    static NibBinding parse(const QString &text);
};

/// A form's `action`.
struct PLATFORM_EXPORT NibAction {
    NibPath target;
    QByteArray method;
    NibPath argument;  ///< without an object: the sender

    /// Raises an AssertionFailure for what is not an action.
    static NibAction parse(const QString &text);
};
