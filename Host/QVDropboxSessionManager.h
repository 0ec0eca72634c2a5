#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Host/ClassRegistry.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Url.h"

/// The authorization of one Dropbox account. Main thread.
class HOST_EXPORT QVDropboxSession {
public:
    using Handler = std::function<void(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo,
                                       const std::optional<Error> &error)>;

    virtual ~QVDropboxSession();
    /// Lets the person sign in outside this program's windows. Cancelling `future` cancels it.
    /// `handler` is called once, on the main thread: with the account, or with nullptr and the
    /// reason.
    virtual void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) = 0;
};

/// Makes sessions. Registered as "QVDropboxSessionManager".
class HOST_EXPORT QVDropboxSessionManager : public HostClass {
public:
    /// `URL`: that of the location, nil for a new one.
    virtual std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) = 0;
};
