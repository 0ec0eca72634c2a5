#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMetaProperty>

#include "Platform/PlatformExport.h"

namespace KeyValue {

struct SplitKeyPath {
    QByteArray key;
    QByteArray rest;  ///< empty for a path of one key
};

/// The first key of `keyPath` and what follows its point.
SplitKeyPath splitKeyPath(const QByteArray &keyPath);

/// The property of `object`'s class for `key`; raises an AssertionFailure where there is none.
QMetaProperty requireProperty(const QObject *object, const QByteArray &key);

/// The object that `key` of `object` holds, or nullptr where it holds nothing; raises an
/// AssertionFailure where it holds anything else.
QObject *objectAt(const QObject *object, const QByteArray &key);

}  // namespace KeyValue
