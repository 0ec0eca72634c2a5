#pragma once

#include <QtCore/QPointer>

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"

class QVDropboxSession;

/// Creates the location of a Dropbox account. It shows no sheet: the user signs in with a browser,
/// and once that succeeds the editor accepts by itself. If it fails, nothing changes and the
/// completion handler is not called.
///
/// Must be used on the main thread. An authorization that is running keeps the editor alive.
class QVDropboxLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// Null until the account is authorized.
    Q_PROPERTY(std::shared_ptr<PZDropboxAccountInfo> accountInfo READ accountInfo WRITE
                   setAccountInfo NOTIFY accountInfoChanged)
    /// Localized text for display: not authorized, authorizing, or authorized.
    Q_PROPERTY(QString authorizationStatus READ authorizationStatus WRITE setAuthorizationStatus
                   NOTIFY authorizationStatusChanged)
    /// Whether an authorization has succeeded.
    Q_PROPERTY(bool authorized READ isAuthorized WRITE setAuthorized NOTIFY authorizedChanged)
    /// Cancels the authorization, also later ones. Never null unless it is set to null.
    Q_PROPERTY(std::shared_ptr<PZFuture> future READ future WRITE setFuture NOTIFY futureChanged)
    /// Equal to `authorized`.
    Q_PROPERTY(bool canAccept READ canAccept NOTIFY canAcceptChanged)
public:
    /// Returns a new editor of `location`, which must not be null. Never null.
    static std::shared_ptr<QVDropboxLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);

    std::shared_ptr<PZDropboxAccountInfo> accountInfo() const { return m_accountInfo; }
    void setAccountInfo(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo);
    QString authorizationStatus() const { return m_authorizationStatus; }
    /// The setters only announce; authorize() calls them.
    void setAuthorizationStatus(const QString &status);
    bool isAuthorized() const { return m_isAuthorized; }
    void setAuthorized(bool authorized);
    std::shared_ptr<PZFuture> future() const { return m_future; }
    /// Replaces the future of later authorizations; must not be null when authorize() is called.
    void setFuture(const std::shared_ptr<PZFuture> &future);
    bool canAccept() const { return isAuthorized(); }

    /// Starts the authorization and returns at once. Raises an AssertionFailure if `parentWindow`
    /// is null, although no sheet is shown.
    void runLocationEditorModalForWindow(QWidget *parentWindow, bool showCancelButton,
                                         CompletionHandler handler) override;

    /// Dependency of the derived key, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanAccept() {
        return {"authorized"};
    }

public Q_SLOTS:
    /// Starts an authorization. May be called again after one has failed. Has no effect if the host
    /// provides no Dropbox sessions.
    void authorize(QObject *sender);
    /// Sets the location's URL from the account and calls the completion handler. Has no effect
    /// before an account is authorized.
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    /// Emitted each time the value is set, even if it stays equal.
    void accountInfoChanged();
    void authorizationStatusChanged();
    void authorizedChanged();
    void futureChanged();
    void canAcceptChanged();

private:
    explicit QVDropboxLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    /// Called on the main thread; `accountInfo` is null if the authorization failed.
    void didAuthorize(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo, QObject *sender);

    /// Null if the host provides no Dropbox sessions.
    std::shared_ptr<QVDropboxSession> m_session;
    std::shared_ptr<PZDropboxAccountInfo> m_accountInfo;
    QString m_authorizationStatus;
    bool m_isAuthorized = false;
    std::shared_ptr<PZFuture> m_future;
};
