#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QVariant>
#include <algorithm>

#include "Platform/PlatformExport.h"

/// One rule by which objects are sorted: the values of a key path, compared as they are (strings by
/// their code units, nothing before anything). The key "self" stands for the object itself.
struct SortDescriptor {
    QByteArray key;
    bool ascending = true;

    bool operator==(const SortDescriptor &) const = default;
};

/// Whether `left` comes before `right` by the first of `descriptors` that tells them apart.
PLATFORM_EXPORT bool isOrderedBefore(const QVariant &left, const QVariant &right,
                                     const QList<SortDescriptor> &descriptors);

/// `objects` in the order of `descriptors`; those that no rule tells apart keep their order.
template <class Object>
QList<Object> sortedUsingDescriptors(QList<Object> objects,
                                     const QList<SortDescriptor> &descriptors) {
    std::stable_sort(objects.begin(), objects.end(), [&](const Object &left, const Object &right) {
        return isOrderedBefore(QVariant::fromValue(left), QVariant::fromValue(right), descriptors);
    });
    return objects;
}
