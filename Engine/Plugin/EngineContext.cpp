#include "Engine/Plugin/EngineContext.h"

#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/Foundation/Turns.h"
#include "Engine/Stores/Folder/FolderGrants.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Engine/Stores/Http/HttpSessions.h"
#include "Engine/Stores/StoreOperations.h"

EngineContext::EngineContext(const ProfileDatabase &profile)
    : certificateTrust(std::make_shared<CertificateTrust>(profile)),
      folderGrants(std::make_shared<FolderGrants>(profile)),
      pairings(std::make_shared<DirectConnectionPairings>(profile)),
      httpSessions(std::make_shared<HttpSessions>()),
      dropboxRefreshTurns(std::make_shared<Turns>()),
      storeOperations(std::make_shared<StoreOperations>()) {}

EngineContext::~EngineContext() {
    certificateTrust->close();
    pairings->close();
    httpSessions->close();
}

Expected<void> EngineContext::load() {
    return folderGrants->load().and_then([this] { return pairings->load(); }).and_then([this] {
        return certificateTrust->load();
    });
}
