#include "Host/QVSyncProgress.h"

#include <QtCore/QVariant>

#include <QtCore/QObject>

QVSyncProgress QVSyncProgress::of(const QObject *dispatcher) {
    return dispatcher->property(Key).value<QVSyncProgress>();
}
