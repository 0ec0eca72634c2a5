#pragma once

#include <memory>

#include "Platform/Foundation/Expected.h"

class CertificateTrust;
class DirectConnectionPairings;
class FolderGrants;
class HttpSessions;
class ProfileDatabase;
class StoreOperations;
class Turns;

/// The objects that all stores of one engine share, instead of state of the process: two engines in
/// one process do not affect each other, except that HostLookUp limits the look-ups of all of them
/// together. A store shares ownership of those that it uses, so they outlive an operation on a
/// worker thread. The user's secrets are not among them: Keychain and UrlCredentialStorage belong
/// to the process, because the pane reads and writes them, too. Must be used on the main thread.
class EngineContext {
public:
    /// `profile` is not owned and must outlive this object.
    explicit EngineContext(const ProfileDatabase &profile);
    /// Closes the certificate trust, the pairings and the HTTP sessions, which stores may still
    /// hold: from then on they trust nothing and store nothing. Operations are not cancelled here,
    /// see StoreOperations::end().
    ~EngineContext();
    EngineContext(const EngineContext &) = delete;
    EngineContext &operator=(const EngineContext &) = delete;

    /// Reads the stored data from the profile: granted folders, pairings, and trusted certificates.
    /// Must be called once, after the profile was opened. If it fails, the engine must not be used.
    /// Blocks for the disk.
    Expected<void> load();

    /// None of these is null.
    const std::shared_ptr<CertificateTrust> certificateTrust;
    const std::shared_ptr<FolderGrants> folderGrants;
    const std::shared_ptr<DirectConnectionPairings> pairings;
    /// The connections that a location's stores leave to the next one.
    const std::shared_ptr<HttpSessions> httpSessions;
    /// Let one store at a time refresh the tokens of a Dropbox account, by its address in lower
    /// case. A server may invalidate a refresh token that is used twice (RFC 6749, section 10.4).
    const std::shared_ptr<Turns> dropboxRefreshTurns;
    /// Starts every operation of a store, lets one at a time parse a record, and cancels all of
    /// them when the engine ends.
    const std::shared_ptr<StoreOperations> storeOperations;
};
