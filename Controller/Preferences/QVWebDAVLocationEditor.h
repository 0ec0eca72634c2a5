#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <optional>

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/UrlCredential.h"

/// Edits the location of a sync store on a WebDAV server. The password goes into the credential
/// storage when the sheet is accepted, for HTTP Basic and for HTTP Digest, and never into the URL.
/// Whether the server is there, or takes the password, is not checked.
///
/// The credential of an existing location is read without waiting: until it is there, the fields
/// for user and password are disabled. As long as it has not been read, accepting stores none; if
/// it could not be read, only a password that the user has entered is stored.
class QVWebDAVLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// The one shown and, once accepted, the one stored. Empty while it is read.
    Q_PROPERTY(std::optional<UrlCredential> credential READ credential WRITE setCredential NOTIFY
                   credentialChanged)
    // Outlets
    Q_PROPERTY(QLineEdit *serverField MEMBER m_serverField)
    Q_PROPERTY(QLineEdit *userField MEMBER m_userField)
    Q_PROPERTY(QLineEdit *passwordField MEMBER m_passwordField)
    Q_PROPERTY(QLineEdit *pathField MEMBER m_pathField)
    Q_PROPERTY(QLineEdit *storeField MEMBER m_storeField)
    Q_PROPERTY(QLineEdit *portField MEMBER m_portField)
    Q_PROPERTY(QCheckBox *HTTPSCheckbox MEMBER m_HTTPSCheckbox)
    Q_PROPERTY(QPushButton *acceptButton MEMBER m_acceptButton)
    Q_PROPERTY(QLabel *explanationLabel MEMBER m_explanationLabel)
public:
    /// What the sheet says of the location; a value.
    struct Fields {
        bool isHTTPS = false;
        /// May be typed with "http:" or "https:" in front, which is left out and decides nothing.
        QString server = {};
        QString user = {};
        QString path = {};
        /// Without the extension.
        QString store = {};
        /// Empty for the default port; read modulo 65536.
        QString port = {};

        bool operator==(const Fields &) const = default;
    };

    static std::shared_ptr<QVWebDAVLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);
    /// 443 for HTTPS, else 80.
    static quint16 defaultPortForHTTPS(bool isHTTPS);
    /// `host` without one leading "http:" or "https:" (in small letters), and without "/", ":" and
    /// "@" at its ends.
    static QString sanitizeHost(const QString &host);
    /// nil where what comes out does not parse.
    static Url URLWithFields(const Fields &fields);
    /// What the sheet shows for a URL, all but the credential's part; nothing for a nil one.
    static Fields fieldsOfURL(const Url &URL);

    std::optional<UrlCredential> credential() const { return m_credential; }
    void setCredential(const std::optional<UrlCredential> &credential);
    QLineEdit *serverField() const { return m_serverField; }
    QLineEdit *userField() const { return m_userField; }
    QLineEdit *passwordField() const { return m_passwordField; }
    QLineEdit *pathField() const { return m_pathField; }
    QLineEdit *storeField() const { return m_storeField; }
    QLineEdit *portField() const { return m_portField; }
    QCheckBox *HTTPSCheckbox() const { return m_HTTPSCheckbox; }
    QPushButton *acceptButton() const { return m_acceptButton; }

    /// Whether the field holds anything.
    bool validateValueOfField(const QLineEdit *field) const;
    /// Whether server and store are given.
    bool isValid() const;

public Q_SLOTS:
    /// Shows the default port of what `checkBox` says.
    void toggleHTTPS(QObject *checkBox);
    /// Enables the OK button exactly when the sheet is valid.
    void validate(QObject *sender);
    void controlTextDidChange();
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    void credentialChanged();

protected:
    void awakeFromNib() override;

private:
    explicit QVWebDAVLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    enum class CredentialState { Known, Reading, Unreadable };

    Fields fields() const;
    void readCredential();
    void didReadCredential(const Expected<std::optional<UrlCredential>> &credential);
    void showCredential();
    bool mayStoreCredential() const;
    void storeCredential();

    CredentialState m_credentialState = CredentialState::Known;
    Error m_readingError;

    std::optional<UrlCredential> m_credential;
    QPointer<QLineEdit> m_serverField;
    QPointer<QLineEdit> m_userField;
    QPointer<QLineEdit> m_passwordField;
    QPointer<QLineEdit> m_pathField;
    QPointer<QLineEdit> m_storeField;
    QPointer<QLineEdit> m_portField;
    QPointer<QCheckBox> m_HTTPSCheckbox;
    QPointer<QPushButton> m_acceptButton;
    QPointer<QLabel> m_explanationLabel;
};
