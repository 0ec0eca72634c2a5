#include "Application/Interface/QVUnsentChanges.h"

#include "Host/QVSyncDispatcher.h"

QVUnsentChanges::~QVUnsentChanges() = default;

Expected<bool> QVUnsentChanges::in(const QVSyncState &state, const QVSyncDispatcher *dispatcher) {
    const auto *unsent = dynamic_cast<const QVUnsentChanges *>(dispatcher);
    return unsent ? unsent->hasUnsentChanges(state) : false;
}
