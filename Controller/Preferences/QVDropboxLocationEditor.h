#pragma once

#include <QtCore/QPointer>

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"

class QVDropboxSession;

/// Creates the location of a Dropbox account, or signs in to its account again. It shows no sheet:
/// the user signs in with a browser, and once that succeeds the editor accepts by itself. If it
/// fails, nothing changes, the completion handler is not called, and the error is not presented by
/// this class.
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
    /// Returns a new editor of `location`, which must not be null. Never null. The session is for
    /// the URL that the location has now: if it names an account, only that account is accepted.
    static std::shared_ptr<QVDropboxLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);

    std::shared_ptr<PZDropboxAccountInfo> accountInfo() const { return m_accountInfo; }
    /// Sets the account that acceptModalSheet() uses, and announces it; null stands for none.
    void setAccountInfo(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo);
    QString authorizationStatus() const { return m_authorizationStatus; }
    /// The setters only announce; authorize() calls them.
    void setAuthorizationStatus(const QString &status);
    bool isAuthorized() const { return m_isAuthorized; }
    void setAuthorized(bool authorized);
    std::shared_ptr<PZFuture> future() const { return m_future; }
    /// Replaces the future of later authorizations; must not be null when authorize() is called.
    /// Does not cancel a running one. Cancelling ends the authorization soon, as one that has
    /// failed.
    void setFuture(const std::shared_ptr<PZFuture> &future);
    bool canAccept() const { return isAuthorized(); }

    /// Starts the authorization and returns at once. `handler`, which may be empty, is called once,
    /// when the user has signed in. Raises an AssertionFailure if `parentWindow` is null, although
    /// no sheet is shown.
    void runLocationEditorModalForWindow(QWidget *parentWindow, bool showCancelButton,
                                         CompletionHandler handler) override;

    /// Dependency of the derived key, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanAccept() {
        return {"authorized"};
    }

public Q_SLOTS:
    /// Starts an authorization and returns at once; the user has the time that the host allows.
    /// `sender` is passed to acceptModalSheet() unless it is destroyed before. May be called again
    /// after one has failed. Has no effect if the host provides no Dropbox sessions.
    void authorize(QObject *sender);
    /// Sets the location's URL from the account and calls the completion handler. Has no effect
    /// before an account is authorized. The URL consists of the scheme and the e-mail address that
    /// the account reports; an existing location thus gets the same one again. The editor may be
    /// destroyed when this returns.
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
