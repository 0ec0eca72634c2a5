#pragma once

#include <chrono>

#include "Engine/Stores/BlobStore.h"

/// Finds out whether a store can be written: writes a small blob into each folder of the store,
/// reads it back and removes it. It has a name that no record has, so readers ignore it.
class StoreProbe {
public:
    /// Maximum time for the removal of a probe, which happens even if the check is cancelled.
    static constexpr std::chrono::seconds RemovalTimeout{10};

    /// `store` is not owned and must outlive this object.
    explicit StoreProbe(BlobStore &store) : m_store(store) {}

    /// Returns whether `name` is the name of a probe in one of the folders.
    static bool isProbe(const QString &name);

    /// Runs the probe. First removes the probes that earlier runs of this user have left, and those
    /// of other users that are older than a day. Fails with the error of the store, or with the
    /// code StoreUnreachable if the user defaults cannot be read. Blocks; must be called on a
    /// worker thread.
    Expected<void> run(const EngineFuture &future);

private:
    /// `names` is what the folder contains, `own` the name of this user's probes.
    void removeLeftOvers(const QString &folder, const QStringList &names, const QString &own,
                         const EngineFuture &future);
    bool isLeftOver(const QString &name, const EngineFuture &future);
    /// Writes the probe `name` and reads it back.
    Expected<void> write(const QString &name, const EngineFuture &future);
    Expected<void> remove(const QString &name);

    BlobStore &m_store;
};
