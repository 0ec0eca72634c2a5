#include "Host/QVSyncStoreCheck.h"

#include <QtCore/QLocale>

#include "Host/QVSyncStore.h"
#include "Host/SyncStrings.h"

QString QVSyncStoreCheck::text(const QString &title) const {
    if (error) {
        return isReadable ? localizedSyncString("“%1” can be read, but not written. %2")
                                .arg(title, error->localizedDescription)
                          : error->localizedDescription;
    }
    const QString count =
        localizedSyncCount("%1 databases", "%1 database", databases).arg(databases);
    if (!isWritable) {
        return localizedSyncString("“%1” can be read. %2.").arg(title, count);
    }
    if (!size) {
        return localizedSyncString("“%1” can be read and written. %2.").arg(title, count);
    }
    return localizedSyncString("“%1” can be read and written. %2, %3.")
        .arg(title, count, QLocale().formattedDataSize(*size, 1, QLocale::DataSizeSIFormat));
}

QVCheckableStore::~QVCheckableStore() = default;

std::shared_ptr<QVCheckableStore> QVCheckableStore::of(const std::shared_ptr<QVSyncStore> &store) {
    return std::dynamic_pointer_cast<QVCheckableStore>(store);
}
