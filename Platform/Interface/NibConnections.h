#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include "Platform/KeyValue/Binding.h"
#include "Platform/PlatformExport.h"

/// The name of an object and, after its first point, a key path from it. A value; names are not
/// checked until the form is connected.
struct PLATFORM_EXPORT NibPath {
    QString object;
    QByteArray keyPath;

    /// Parses "object.key.key", ignoring blanks at both ends. The key path is empty if there is no
    /// point. Never fails; an empty text gives an empty object.
    static NibPath parse(const QString &text);
};

/// One entry of a form's `bindings`.
struct PLATFORM_EXPORT NibBinding {
    /// The bound key, or "object.key".
    QByteArray key;
    NibPath path;
    /// Name of a ValueTransformer; empty if there is none.
    QString transformer;
    KeyValue::Direction direction = KeyValue::Direction::FromModel;

    /// Parses "key <- path | transformer". Raises an AssertionFailure if `text` has another form. A
    /// path without a key is an error, since a binding needs something to observe.
    static NibBinding parse(const QString &text);
};

/// A form's `action` or `textDidChange`.
struct PLATFORM_EXPORT NibAction {
    /// The object to call, by name or by path.
    NibPath target;
    QByteArray method;
    /// The argument; an empty object name means the sender.
    NibPath argument;

    /// Parses "path.method" or "path.method(path)". Raises an AssertionFailure if `text` has
    /// another form. A call with empty parentheses passes the sender.
    static NibAction parse(const QString &text);
};
