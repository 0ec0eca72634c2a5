#include "Engine/Stores/Dropbox/DropboxSession.h"

#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxSessionManager.h"
#include "Host/QVApplication.h"

namespace {

/// Calls `handler` with the account that `URL` names, and with an error instead of any other.
void handOver(const std::shared_ptr<PZDropboxAccountInfo> &account, const Url &URL,
              const QVDropboxSession::Handler &handler) {
    const QLatin1StringView scheme("dropbox://");
    const QString expected = URL.absoluteString().sliced(scheme.size());
    if (account->email().compare(expected, Qt::CaseInsensitive) == 0) {
        handler(account, std::nullopt);
        return;
    }
    const Error error = DropboxError::otherAccount(expected, account->email());
    if (QVApplication *application = NSApp()) {
        application->presentError(error);
    }
    handler(nullptr, error);
}

}  // namespace

void DropboxSession::authorizeWithFuture(const std::shared_ptr<PZFuture> &future, Handler handler) {
    if (!m_URL.absoluteString().startsWith(QLatin1StringView("dropbox://"))) {
        m_manager.authorize(future, std::move(handler));
        return;
    }
    m_manager.authorize(future, [URL = m_URL, handler = std::move(handler)](
                                    const std::shared_ptr<PZDropboxAccountInfo> &account,
                                    const std::optional<Error> &error) {
        account ? handOver(account, URL, handler) : handler(nullptr, error);
    });
}
