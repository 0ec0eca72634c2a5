#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaProperty>

#include "Platform/PlatformExport.h"

namespace KeyValue {

/// A key path, split at its first point.
struct SplitKeyPath {
    QByteArray key;
    /// Empty if the path is a single key.
    QByteArray rest;
};

/// Splits `keyPath` at its first point. An empty path gives an empty key.
SplitKeyPath splitKeyPath(const QByteArray &keyPath);

/// Returns the property named `key`, including those of base classes. Raises an AssertionFailure if
/// `object` is null or its class has no such property.
QMetaProperty requireProperty(const QObject *object, const QByteArray &key);

/// Returns the object that the property `key` of `object` holds by raw or shared pointer; null if
/// the property holds no value. The object is not owned by the caller; a property that computes a
/// std::shared_ptr must keep it elsewhere too. Raises an AssertionFailure if the property does not
/// exist or holds a value that is no QObject.
QObject *objectAt(const QObject *object, const QByteArray &key);

}  // namespace KeyValue
