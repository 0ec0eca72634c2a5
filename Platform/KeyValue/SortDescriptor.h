#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QVariant>
#include <algorithm>

#include "Platform/PlatformExport.h"

/// One sort criterion: the values at a key path are compared without regard to the locale (strings
/// by code unit). Absent values come first in ascending order. The key "self" denotes the object
/// itself; any other key raises an AssertionFailure while sorting if an object does not have it.
struct SortDescriptor {
    /// A key path, or "self".
    QByteArray key;
    bool ascending = true;

    bool operator==(const SortDescriptor &) const = default;
};

/// Returns whether `left` comes before `right` by the first of `descriptors` that distinguishes
/// them; false if none does, or if there are none. Values of types that cannot be compared count as
/// equal. Must be called on the thread of the objects.
PLATFORM_EXPORT bool isOrderedBefore(const QVariant &left, const QVariant &right,
                                     const QList<SortDescriptor> &descriptors);

/// Returns `objects` sorted by `descriptors`. The sort is stable. Takes O(n log n) comparisons,
/// each of which reads the keys again.
template <class Object>
QList<Object> sortedUsingDescriptors(QList<Object> objects,
                                     const QList<SortDescriptor> &descriptors) {
    std::stable_sort(objects.begin(), objects.end(), [&](const Object &left, const Object &right) {
        return isOrderedBefore(QVariant::fromValue(left), QVariant::fromValue(right), descriptors);
    });
    return objects;
}
