#include "Controller/QVNextScheduledDateValueTransformer.h"

#include "Host/SyncStrings.h"
#include "Platform/Foundation/RelativeDate.h"

QMetaType QVNextScheduledDateValueTransformer::transformedValueClass() const {
    return QMetaType::fromType<QString>();
}

QVariant QVNextScheduledDateValueTransformer::transformedValue(const QVariant &value) const {
    const QDateTime date = value.toDateTime();
    return date.isValid() ? localizedSyncString("Next synchronization: %1")
                                .arg(relativeDateString(date, QDateTime::currentDateTime()))
                          : localizedSyncString("No synchronization is scheduled.");
}
