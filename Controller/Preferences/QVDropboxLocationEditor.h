#pragma once

#include <QtCore/QPointer>

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Host/PZDropboxAccountInfo.h"
#include "Host/PZFuture.h"

class QVDropboxSession;

/// Makes the location of a Dropbox account. It shows no sheet: the person signs in outside this
/// program's windows, and once they have the editor accepts by itself. When they have not, nothing
/// is changed and the completion handler is not called.
class QVDropboxLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// nullptr until the account was authorized.
    Q_PROPERTY(std::shared_ptr<PZDropboxAccountInfo> accountInfo READ accountInfo WRITE
                   setAccountInfo NOTIFY accountInfoChanged)
    /// For a person to read.
    Q_PROPERTY(QString authorizationStatus READ authorizationStatus WRITE setAuthorizationStatus
                   NOTIFY authorizationStatusChanged)
    Q_PROPERTY(bool authorized READ isAuthorized WRITE setAuthorized NOTIFY authorizedChanged)
    /// Cancels the authorization. One for all attempts.
    Q_PROPERTY(std::shared_ptr<PZFuture> future READ future WRITE setFuture NOTIFY futureChanged)
    Q_PROPERTY(bool canAccept READ canAccept NOTIFY canAcceptChanged)
public:
    static std::shared_ptr<QVDropboxLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);

    std::shared_ptr<PZDropboxAccountInfo> accountInfo() const { return m_accountInfo; }
    void setAccountInfo(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo);
    QString authorizationStatus() const { return m_authorizationStatus; }
    void setAuthorizationStatus(const QString &status);
    bool isAuthorized() const { return m_isAuthorized; }
    void setAuthorized(bool authorized);
    std::shared_ptr<PZFuture> future() const { return m_future; }
    void setFuture(const std::shared_ptr<PZFuture> &future);
    bool canAccept() const { return isAuthorized(); }

    /// Starts the authorization. An absent window is a programming error, though nothing is shown.
    void runLocationEditorModalForWindow(QWidget *parentWindow, bool showCancelButton,
                                         CompletionHandler handler) override;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingCanAccept() {
        return {"authorized"};
    }

public Q_SLOTS:
    /// May be called again after it has failed.
    void authorize(QObject *sender);
    /// Has no effect before an account was authorized.
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    void accountInfoChanged();
    void authorizationStatusChanged();
    void authorizedChanged();
    void futureChanged();
    void canAcceptChanged();

private:
    explicit QVDropboxLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    void didAuthorize(const std::shared_ptr<PZDropboxAccountInfo> &accountInfo, QObject *sender);

    std::shared_ptr<QVDropboxSession> m_session;
    std::shared_ptr<PZDropboxAccountInfo> m_accountInfo;
    QString m_authorizationStatus;
    bool m_isAuthorized = false;
    std::shared_ptr<PZFuture> m_future;
};
