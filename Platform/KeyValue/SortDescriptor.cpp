#include "Platform/KeyValue/SortDescriptor.h"

#include "Platform/KeyValue/KeyValue.h"

namespace {
QVariant sortValue(const QVariant &object, const QByteArray &key) {
    if (key == "self") {
        return object;
    }
    const QObject *holder = KeyValue::objectValue(object);
    return holder ? KeyValue::value(holder, key) : QVariant();
}

/// Absent values come first, so that all values have a total order.
QPartialOrdering compare(const QVariant &left, const QVariant &right) {
    const bool isLeftAbsent = KeyValue::isAbsent(left);
    const bool isRightAbsent = KeyValue::isAbsent(right);
    if (isLeftAbsent || isRightAbsent) {
        return isLeftAbsent == isRightAbsent ? QPartialOrdering::Equivalent
               : isLeftAbsent                ? QPartialOrdering::Less
                                             : QPartialOrdering::Greater;
    }
    return QVariant::compare(left, right);
}
}  // namespace

bool isOrderedBefore(const QVariant &left, const QVariant &right,
                     const QList<SortDescriptor> &descriptors) {
    for (const SortDescriptor &descriptor : descriptors) {
        const QPartialOrdering order =
            compare(sortValue(left, descriptor.key), sortValue(right, descriptor.key));
        if (order == QPartialOrdering::Less) {
            return descriptor.ascending;
        }
        if (order == QPartialOrdering::Greater) {
            return !descriptor.ascending;
        }
    }
    return false;
}
