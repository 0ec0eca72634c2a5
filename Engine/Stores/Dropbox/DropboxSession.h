#pragma once

#include "Host/QVDropboxSessionManager.h"

class DropboxSessionManager;

/// Any account may be signed in, also for a location that has one.
class DropboxSession : public QVDropboxSession {
public:
    /// `manager` must outlive every use of this.
    explicit DropboxSession(DropboxSessionManager &manager) : m_manager(manager) {}
    void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) override;

private:
    DropboxSessionManager &m_manager;
};
