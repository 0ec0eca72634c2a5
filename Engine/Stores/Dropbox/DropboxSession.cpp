#include "Engine/Stores/Dropbox/DropboxSession.h"

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxAccountInfo.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Engine/Stores/Dropbox/DropboxUrl.h"
#include "Host/QVApplication.h"

namespace {

bool isAccount(const QString &address, const QString &expected) {
    return expected.isEmpty() || DropboxUrl::isSameAccount(address, expected);
}

/// Returns `signIn`, or an error if it is that of another account.
Expected<DropboxAuthorization::SignIn> checked(const Expected<DropboxAuthorization::SignIn> &signIn,
                                               const QString &expected) {
    return signIn && !isAccount(signIn->address, expected)
               ? failure(DropboxError::otherAccount(expected, signIn->address))
               : signIn;
}

/// Presents `error`, because the user has only seen the browser.
void present(const Error &error) {
    QVApplication *application = NSApp();
    if (application && !isEngineError(error, EngineErrorCode::Cancelled)) {
        application->presentError(error);
    }
}

}  // namespace

void DropboxSession::authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) {
    m_manager.authorize(future,
                        [expected = DropboxUrl::account(m_URL), handler = std::move(handler)](
                            const Expected<DropboxAuthorization::SignIn> &result) {
                            const auto signIn = checked(result, expected);
                            if (!signIn) {
                                present(signIn.error());
                                handler(nullptr, signIn.error());
                                return;
                            }
                            const auto &[address, tokens] = *signIn;
                            tokens.store(address);
                            handler(std::make_shared<DropboxAccountInfo>(address), std::nullopt);
                        });
}
