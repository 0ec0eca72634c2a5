#include "Platform/KeyValue/SortDescriptor.h"

#include "Platform/KeyValue/KeyValue.h"

namespace {
QVariant sortValue(const QVariant &object, const QByteArray &key) {
    return key == "self" ? object : KeyValue::value(KeyValue::objectValue(object), key);
}
}  // namespace

bool isOrderedBefore(const QVariant &left, const QVariant &right,
                     const QList<SortDescriptor> &descriptors) {
    for (const SortDescriptor &descriptor : descriptors) {
        const QPartialOrdering order =
            QVariant::compare(sortValue(left, descriptor.key), sortValue(right, descriptor.key));
        if (order == QPartialOrdering::Less) {
            return descriptor.ascending;
        }
        if (order == QPartialOrdering::Greater) {
            return !descriptor.ascending;
        }
    }
    return false;
}
