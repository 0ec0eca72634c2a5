#include "Platform/Foundation/Localization.h"

#include <QtCore/QCoreApplication>

QString localizedSyncString(const char *key, const char * /*comment*/) {
    return QCoreApplication::translate("Sync", key);
}
