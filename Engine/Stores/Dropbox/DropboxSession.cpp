#include "Engine/Stores/Dropbox/DropboxSession.h"

#include "Engine/Stores/Dropbox/DropboxAccountInfo.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Engine/Stores/Dropbox/DropboxUrl.h"
#include "Host/QVApplication.h"

namespace {

bool isAccount(const QString &address, const QString &expected) {
    return expected.isEmpty() || DropboxUrl::isSameAccount(address, expected);
}

/// Presents and returns the error that the user signed in to another account.
Error refuse(const QString &address, const QString &expected) {
    Error error = DropboxError::otherAccount(expected, address);
    if (QVApplication *application = NSApp()) {
        application->presentError(error);
    }
    return error;
}

}  // namespace

void DropboxSession::authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) {
    m_manager.authorize(future,
                        [expected = DropboxUrl::account(m_URL), handler = std::move(handler)](
                            const Expected<DropboxAuthorization::SignIn> &signIn) {
                            if (!signIn) {
                                handler(nullptr, signIn.error());
                                return;
                            }
                            const auto &[address, tokens] = *signIn;
                            if (!isAccount(address, expected)) {
                                handler(nullptr, refuse(address, expected));
                                return;
                            }
                            tokens.store(address);
                            handler(std::make_shared<DropboxAccountInfo>(address), std::nullopt);
                        });
}
