#pragma once

#include "Host/QVDropboxSessionManager.h"

class DropboxSessionManager;

/// Authorizes the account of a location's URL, and only that one; any account if the URL is nil.
/// When the user signs in with another account, the error is presented, and the handler gets it.
class DropboxSession : public QVDropboxSession {
public:
    /// `manager` must outlive every use of this.
    DropboxSession(DropboxSessionManager &manager, const Url &URL)
        : m_manager(manager), m_URL(URL) {}
    void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) override;

private:
    DropboxSessionManager &m_manager;
    const Url m_URL;
};
