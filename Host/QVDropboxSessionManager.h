#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Host/ClassRegistry.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Url.h"

/// Authorizes this application to use one Dropbox account. Shared ownership. Must be used on the
/// main thread, and not after the host has closed its profile.
class HOST_EXPORT QVDropboxSession {
public:
    /// Receives the account and std::nullopt, or nullptr and the error.
    using Handler = std::function<void(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo,
                                       const std::optional<Error> &error)>;

    virtual ~QVDropboxSession();
    /// Lets the user sign in outside this program's windows and returns at once. `handler`, which
    /// must not be empty, is called exactly once, on the main thread and after this function has
    /// returned: also when the sign-in fails, times out, or is cancelled through `future`, which
    /// must not be null. The session may be released, and another authorization started, before
    /// that.
    virtual void authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) = 0;
};

/// Creates authorization sessions. It is its own class object, see HostClass. Must be used on the
/// main thread.
class HOST_EXPORT QVDropboxSessionManager : public HostClass {
public:
    /// The name under which a host registers the class object.
    static constexpr QLatin1StringView Name{"QVDropboxSessionManager"};
    /// Returns a new session for the location with this URL; a nil URL stands for a location that
    /// is not configured yet. Never null.
    virtual std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) = 0;
};
