#include "Controller/Preferences/QVDropboxLocationEditor.h"

#include "Host/LocationSchemes.h"
#include "Host/QVDropboxSessionManager.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"

namespace {
/// Returns null if the host provides no Dropbox sessions.
std::shared_ptr<QVDropboxSession> sessionWithURL(const Url &URL) {
    auto *manager = optionalHostClass<QVDropboxSessionManager>();
    return manager ? manager->sessionWithURL(URL) : nullptr;
}
}  // namespace

QVDropboxLocationEditor::QVDropboxLocationEditor(const std::shared_ptr<QVSyncLocation> &location)
    : QVSyncLocationEditor(QStringLiteral("QVDropboxLocationEditor"), location),
      m_session(sessionWithURL(location->URL())),
      m_authorizationStatus(localizedSyncString("Not authorized")),
      m_future(PZFuture::future()) {
    KeyValue::followDependencies(this);
}

std::shared_ptr<QVDropboxLocationEditor> QVDropboxLocationEditor::editorWithSyncLocation(
    const std::shared_ptr<QVSyncLocation> &location) {
    return std::shared_ptr<QVDropboxLocationEditor>(new QVDropboxLocationEditor(location));
}

void QVDropboxLocationEditor::setAccountInfo(
    const std::shared_ptr<PZDropboxAccountInfo> &accountInfo) {
    m_accountInfo = accountInfo;
    KeyValue::announce<&QVDropboxLocationEditor::accountInfoChanged>(this);
}

void QVDropboxLocationEditor::setAuthorizationStatus(const QString &status) {
    m_authorizationStatus = status;
    KeyValue::announce<&QVDropboxLocationEditor::authorizationStatusChanged>(this);
}

void QVDropboxLocationEditor::setAuthorized(bool authorized) {
    m_isAuthorized = authorized;
    KeyValue::announce<&QVDropboxLocationEditor::authorizedChanged>(this);
}

void QVDropboxLocationEditor::setFuture(const std::shared_ptr<PZFuture> &future) {
    m_future = future;
    KeyValue::announce<&QVDropboxLocationEditor::futureChanged>(this);
}

void QVDropboxLocationEditor::runLocationEditorModalForWindow(QWidget *parentWindow,
                                                              bool showCancelButton,
                                                              CompletionHandler handler) {
    requireParameter(parentWindow, "parentWindow != nil",
                     "QVDropboxLocationEditor::runLocationEditorModalForWindow",
                     "Controller/Preferences/QVDropboxLocationEditor", 50);
    setShouldShowCancelButton(showCancelButton);
    setCompletionHandler(std::move(handler));
    authorize(nullptr);
}

void QVDropboxLocationEditor::authorize(QObject *sender) {
    if (!m_session) {
        return;
    }
    setAuthorizationStatus(localizedSyncString("Authorizing…"));
    const auto self = std::static_pointer_cast<QVDropboxLocationEditor>(shared_from_this());
    m_session->authorizeWithFuture(m_future, [self, sender = QPointer(sender)](
                                                 const auto &accountInfo, const auto & /*error*/) {
        self->didAuthorize(accountInfo, sender);
    });
}

void QVDropboxLocationEditor::didAuthorize(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo,
                                           QObject *sender) {
    if (!accountInfo) {
        setAuthorizationStatus(localizedSyncString("Not authorized"));
        return;
    }
    setAccountInfo(accountInfo);
    setAuthorizationStatus(localizedSyncString("Authorized"));
    setAuthorized(true);
    acceptModalSheet(sender);
}

void QVDropboxLocationEditor::acceptModalSheet(QObject *sender) {
    if (!m_accountInfo) {
        return;
    }
    location()->setURL(Url::fromString(LocationSchemes::Dropbox + QLatin1StringView("://") +
                                       m_accountInfo->email()));
    QVSyncLocationEditor::acceptModalSheet(sender);
}
