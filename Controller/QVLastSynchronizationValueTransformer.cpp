#include "Controller/QVLastSynchronizationValueTransformer.h"

#include "Host/SyncStrings.h"
#include "Platform/Foundation/RelativeDate.h"

QMetaType QVLastSynchronizationValueTransformer::transformedValueClass() const {
    return QMetaType::fromType<QString>();
}

QVariant QVLastSynchronizationValueTransformer::transformedValue(const QVariant &value) const {
    const QDateTime date = value.toDateTime();
    return date.isValid() ? localizedSyncString("Synchronized %1")
                                .arg(relativeDateString(date, QDateTime::currentDateTime()))
                          : localizedSyncString("Never synchronized");
}
