#include "Engine/Stores/Dropbox/DropboxSession.h"

#include "Engine/Stores/Dropbox/DropboxAccountInfo.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Host/QVApplication.h"

namespace {

/// Returns the address of the account that `URL` names; empty if it names none.
QString accountOf(const Url &URL) {
    const QLatin1StringView scheme("dropbox://");
    const QString text = URL.absoluteString();
    return text.startsWith(scheme) ? text.sliced(scheme.size()) : QString();
}

bool isAccount(const QString &address, const QString &expected) {
    return expected.isEmpty() || address.compare(expected, Qt::CaseInsensitive) == 0;
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
    m_manager.authorize(future, [expected = accountOf(m_URL), handler = std::move(handler)](
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
