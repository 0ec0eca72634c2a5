#include "Engine/Synchronization/UnsentChanges.h"

Expected<bool> UnsentChanges::exist(const NoteLog &log, const KnownTransactions &known) {
    return known.isComplete().and_then([&](bool isComplete) {
        return isComplete ? known.hasUnwritten()
                          : log.isEmpty().map([](bool isEmpty) { return !isEmpty; });
    });
}
