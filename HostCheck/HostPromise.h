#pragma once

/// A promise that a header in the folder Host makes, and how it is checked. A value, which refers
/// to constants.
struct HostPromise {
    /// The class, the function, and sometimes the case: "QVSyncState.setEnabled".
    const char *key;
    /// The path of the header, as it is included.
    const char *header;
    /// The sentences of the header that make the promise.
    const char *sentence;
    /// Checks the promise with the registered host, as the functions of Checking require.
    void (*check)();
};
