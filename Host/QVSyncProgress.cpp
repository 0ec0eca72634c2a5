#include "Host/QVSyncProgress.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QVariant>

namespace {

/// Returns the function that stops the jobs; invalid if there is none.
QMetaMethod stopMethod(const QObject *dispatcher) {
    const QMetaObject *type = dispatcher->metaObject();
    return type->method(type->indexOfMethod("stop()"));
}

}  // namespace

QVSyncProgress QVSyncProgress::of(const QObject *dispatcher) {
    return dispatcher->property(Key).value<QVSyncProgress>();
}

bool QVSyncProgress::canStop(const QObject *dispatcher) {
    return stopMethod(dispatcher).isValid();
}

void QVSyncProgress::stop(QObject *dispatcher) {
    if (canStop(dispatcher)) {
        stopMethod(dispatcher).invoke(dispatcher, Qt::DirectConnection);
    }
}
