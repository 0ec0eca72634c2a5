#include "Controller/QVLocationImageValueTransformer.h"

#include <QtGui/QPixmap>

#include "Host/QVSyncLocation.h"
#include "Host/QVSyncLocationFormatter.h"

QMetaType QVLocationImageValueTransformer::transformedValueClass() const {
    return QMetaType::fromType<QPixmap>();
}

QVariant QVLocationImageValueTransformer::transformedValue(const QVariant &value) const {
    const auto location = value.value<std::shared_ptr<QVSyncLocation>>();
    return location ? QVSyncLocationFormatter::formatterForLocationWithURL(location->URL())->icon()
                    : QVariant();
}
