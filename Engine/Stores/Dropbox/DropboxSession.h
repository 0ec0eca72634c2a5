#pragma once

#include "Host/QVDropboxSessionManager.h"

class DropboxSessionManager;

/// An authorization session. If the location has a URL, only its account is authorized: if the user
/// signs in with another one, the authorization fails. If the URL is nil, any account is. Only the
/// tokens of an account that is authorized are stored. A failure is presented to the user, who has
/// only seen the browser, unless the authorization was cancelled. Must be used on the main thread.
class DropboxSession : public QVDropboxSession {
public:
    /// `manager` is not owned and must outlive every use of this object.
    DropboxSession(DropboxSessionManager &manager, const Url &URL)
        : m_manager(manager), m_URL(URL) {}
    /// See QVDropboxSession. Runs on a worker thread of the manager, which may have several
    /// authorizations at a time, of the same session too. If the tokens cannot be stored durably,
    /// the secret store notifies the user, and the handler receives the account all the same.
    void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) override;

private:
    DropboxSessionManager &m_manager;
    const Url m_URL;
};
