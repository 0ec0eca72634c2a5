#include "Host/QVSyncStoreCheck.h"

#include "Host/QVSyncStore.h"

QVCheckableStore::~QVCheckableStore() = default;

std::shared_ptr<QVCheckableStore> QVCheckableStore::of(const std::shared_ptr<QVSyncStore> &store) {
    return std::dynamic_pointer_cast<QVCheckableStore>(store);
}
