#include "Controller/QVLocationTitleValueTransformer.h"

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"

QMetaType QVLocationTitleValueTransformer::transformedValueClass() const {
    return QMetaType::fromType<QString>();
}

QVariant QVLocationTitleValueTransformer::transformedValue(const QVariant &value) const {
    const auto location = value.value<std::shared_ptr<QVSyncLocation>>();
    return location ? QVSyncLocationFormatter::formatterForLocationWithURL(location->URL())->title()
                    : QVariant();
}
