#include "Host/QVSyncResult.h"

#include <QtCore/QMetaProperty>
#include <QtCore/QObject>

bool QVSyncResult::isOfferedBy(const QObject *state) {
    return state->metaObject()->indexOfProperty(Key) >= 0;
}

std::optional<QVSyncResult> QVSyncResult::of(const QObject *state) {
    return isOfferedBy(state) ? state->property(Key).value<std::optional<QVSyncResult>>()
                              : std::nullopt;
}
