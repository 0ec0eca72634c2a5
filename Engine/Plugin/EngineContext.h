#pragma once

#include <memory>

#include "Platform/Foundation/Expected.h"

class CertificateTrust;
class DirectConnectionPairings;
class FolderGrants;
class ProfileDatabase;

/// What the stores of one engine share. The stores keep what they use alive, so that an operation
/// on a worker thread never outlives it. Must be used on the main thread.
class EngineContext {
public:
    /// `profile` must outlive this object.
    explicit EngineContext(const ProfileDatabase &profile);
    /// Closes what stores may still hold.
    ~EngineContext();
    EngineContext(const EngineContext &) = delete;
    EngineContext &operator=(const EngineContext &) = delete;

    /// Reads what the profile holds; called once, after it was opened.
    Expected<void> load();

    /// Never null.
    const std::shared_ptr<CertificateTrust> certificateTrust;
    const std::shared_ptr<FolderGrants> folderGrants;
    const std::shared_ptr<DirectConnectionPairings> pairings;
};
