#include "Engine/Stores/Dropbox/DropboxSession.h"

#include "Engine/Stores/Dropbox/DropboxSessionManager.h"

void DropboxSession::authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) {
    m_manager.authorize(future, std::move(handler));
}
