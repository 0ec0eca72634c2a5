#pragma once

#include <memory>

#include "Platform/Foundation/Expected.h"

class CertificateTrust;
class DirectConnectionPairings;
class DropboxRefreshTurn;
class FolderGrants;
class ProfileDatabase;
class StoreOperations;

/// The objects that all stores of one engine share. A store shares ownership of those that it uses,
/// so they outlive an operation on a worker thread. Must be used on the main thread.
class EngineContext {
public:
    /// `profile` is not owned and must outlive this object.
    explicit EngineContext(const ProfileDatabase &profile);
    /// Closes the certificate trust and the pairings, which stores may still hold.
    ~EngineContext();
    EngineContext(const EngineContext &) = delete;
    EngineContext &operator=(const EngineContext &) = delete;

    /// Reads the stored data from the profile. Must be called once, after the profile was opened.
    /// If it fails, the engine must not be used.
    Expected<void> load();

    /// None of these is null.
    const std::shared_ptr<CertificateTrust> certificateTrust;
    const std::shared_ptr<FolderGrants> folderGrants;
    const std::shared_ptr<DirectConnectionPairings> pairings;
    const std::shared_ptr<DropboxRefreshTurn> dropboxRefreshTurn;
    const std::shared_ptr<StoreOperations> storeOperations;
};
