#include "Engine/Synchronization/UnsentChanges.h"

namespace {

/// Returns whether the records contain every one of `operations` and of the `superseded`
/// identifiers.
bool containAll(const QHash<QString, KnownTransactions::Contents> &records,
                QSet<OperationId> operations, QSet<OperationId> superseded) {
    for (const KnownTransactions::Contents &contents : records) {
        for (const OperationId &identifier : contents.operations) {
            operations.remove(identifier);
        }
        for (const OperationId &identifier : contents.superseded) {
            superseded.remove(identifier);
        }
    }
    return operations.isEmpty() && superseded.isEmpty();
}

}  // namespace

Expected<bool> UnsentChanges::exist(const NoteLog &log, const KnownTransactions &known) {
    const Expected<QString> state = log.state();
    const Expected<QString> written = known.written();
    if (!state || !written) {
        return failure(state ? written.error() : state.error());
    }
    // Without a record of what was written, which a clean-up forgets, all must be compared.
    if (*state == *written || !written->isEmpty()) {
        return *state != *written;
    }
    const Expected<QHash<QString, KnownTransactions::Contents>> all = known.all();
    const Expected<QList<OperationId>> operations = log.operationIds();
    const Expected<QSet<OperationId>> superseded = log.supersededIds();
    if (!all || !operations || !superseded) {
        return failure(!all ? all.error() : !operations ? operations.error() : superseded.error());
    }
    return !containAll(*all, {operations->begin(), operations->end()}, *superseded);
}
