#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <optional>

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Controller/Preferences/WebDAVAddress.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Security/UrlCredential.h"

/// Edits the location of a sync store on a WebDAV server. When the sheet is accepted, the password
/// is stored in the credential storage, for HTTP Basic and HTTP Digest authentication; it is never
/// part of the URL. Neither the server nor the password is checked. Must be used on the main
/// thread.
///
/// The credential of an existing location is read asynchronously; until then, the fields for user
/// and password are disabled, and accepting the sheet stores no credential. If it cannot be read,
/// only a password that the user has entered is stored.
class QVWebDAVLocationEditor : public QVSyncLocationEditor {
    Q_OBJECT
    /// The credential shown and, after acceptance, the one stored; empty if none is known or while
    /// it is being read.
    Q_PROPERTY(std::optional<UrlCredential> credential READ credential WRITE setCredential NOTIFY
                   credentialChanged)
    /// The address that the location gets from the fields, or what is wrong with them.
    Q_PROPERTY(QString addressStatus READ addressStatus NOTIFY addressChanged)
    /// Whether `addressStatus` is an address, not what is wrong with it.
    Q_PROPERTY(bool addressValid READ isAddressValid NOTIFY addressChanged)
    /// Whether the server field contains a complete address, such as "https://host:8443/folder".
    Q_PROPERTY(bool completeAddress READ isCompleteAddress NOTIFY addressChanged)
    /// Outlets. Null until the window is loaded; owned by the window.
    Q_PROPERTY(QLineEdit *serverField MEMBER m_serverField)
    Q_PROPERTY(QLineEdit *userField MEMBER m_userField)
    Q_PROPERTY(QLineEdit *passwordField MEMBER m_passwordField)
    Q_PROPERTY(QLineEdit *pathField MEMBER m_pathField)
    Q_PROPERTY(QLineEdit *storeField MEMBER m_storeField)
    Q_PROPERTY(QLineEdit *portField MEMBER m_portField)
    Q_PROPERTY(QCheckBox *HTTPSCheckbox MEMBER m_HTTPSCheckbox)
    Q_PROPERTY(QPushButton *acceptButton MEMBER m_acceptButton)
    Q_PROPERTY(QLabel *explanationLabel MEMBER m_explanationLabel)
    Q_PROPERTY(QLabel *unencryptedLabel MEMBER m_unencryptedLabel)
    Q_PROPERTY(QLabel *addressLabel MEMBER m_addressLabel)
public:
    using Fields = WebDAVAddress::Fields;

    /// Returns a new editor of `location`, which must not be null, and starts to read the
    /// credential for its URL, if it has one. Never null. Loads no window yet.
    static std::shared_ptr<QVWebDAVLocationEditor> editorWithSyncLocation(
        const std::shared_ptr<QVSyncLocation> &location);
    /// Returns 443 for HTTPS, otherwise 80.
    static quint16 defaultPortForHTTPS(bool isHTTPS);
    /// Returns `host` without a leading "http:" or "https:" (lower case only), and without "/", ":"
    /// and "@" at either end. The result may be empty. Users paste whole addresses into the field
    /// for the server.
    static QString sanitizeHost(const QString &host);
    /// Returns the URL for `fields`, or nil if the result is not a valid URL. The port is omitted
    /// if it is the default one of the scheme. The URL always has a user part, which may be empty,
    /// and never a password; "." components and repeated slashes of the path are removed.
    static Url URLWithFields(const Fields &fields);
    /// Returns the fields for `URL` except the user; empty fields for nil. The last component of
    /// the path is the store.
    static Fields fieldsOfURL(const Url &URL);

    /// Returns the credential that was set last; empty if there is none or it is still being read.
    std::optional<UrlCredential> credential() const { return m_credential; }
    /// Sets the credential without storing it. The fields of a loaded window do not change.
    void setCredential(const std::optional<UrlCredential> &credential);
    /// The outlets; null until the window is loaded.
    QLineEdit *serverField() const { return m_serverField; }
    QLineEdit *userField() const { return m_userField; }
    QLineEdit *passwordField() const { return m_passwordField; }
    QLineEdit *pathField() const { return m_pathField; }
    QLineEdit *storeField() const { return m_storeField; }
    QLineEdit *portField() const { return m_portField; }
    QCheckBox *HTTPSCheckbox() const { return m_HTTPSCheckbox; }
    QPushButton *acceptButton() const { return m_acceptButton; }

    /// These two need the outlets.
    QString addressStatus() const;
    bool isAddressValid() const;
    bool isCompleteAddress() const;

    /// Returns whether the field is not empty. `field` must not be null.
    bool validateValueOfField(const QLineEdit *field) const;
    /// Returns whether the server and the store are not empty. The window must be loaded. The URL
    /// may be nil all the same.
    bool isValid() const;

public Q_SLOTS:
    /// Shows the default port, and whether the connection is encrypted, for the state of
    /// `checkBox`, and validates. Does not change the port that the user has entered. Raises an
    /// AssertionFailure if `checkBox` is no QCheckBox.
    void toggleHTTPS(QObject *checkBox);
    /// Enables the OK button if isValid(), otherwise disables it, and announces the address.
    /// `sender` is not used.
    void validate(QObject *sender);
    /// Replaces the contents of the other fields by the parts of the complete address in the server
    /// field. Has no effect if it contains none.
    void distributeAddress();
    /// Called each time the user edits a field.
    void controlTextDidChange();
    /// Sets the location's URL, stores the credential, and without HTTPS that the user has seen
    /// what that means (see UnencryptedPasswords), and presents the error if that cannot be
    /// written. Closes the sheet and calls the completion handler. The credential is stored
    /// asynchronously; a failure is reported to the user later. The location's URL becomes nil if
    /// the fields give no valid URL. Must be called only while the window is loaded; the editor may
    /// be destroyed when this returns.
    void acceptModalSheet(QObject *sender) override;

Q_SIGNALS:
    /// Emitted each time the credential is set, even if it stays equal.
    void credentialChanged();
    /// Emitted after each edit of a field.
    void addressChanged();

protected:
    /// Shows the location's URL and credential. Always shows the Cancel button: the changes reach
    /// the location only when the sheet is accepted.
    void awakeFromNib() override;

private:
    explicit QVWebDAVLocationEditor(const std::shared_ptr<QVSyncLocation> &location);
    /// Whether the stored credential is known, is being read, or cannot be read.
    enum class CredentialState { Known, Reading, Unreadable };

    /// Returns what the sheet shows.
    Fields fields() const;
    /// Returns that as it is when the user leaves the fields.
    Fields trimmedFields() const;
    void readCredential();
    void didReadCredential(const Expected<std::optional<UrlCredential>> &credential);
    void showCredential();
    bool mayStoreCredential() const;
    /// Stores the user and the password shown.
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
    /// Says what others on the network can read; visible unless HTTPS is on.
    QPointer<QLabel> m_unencryptedLabel;
    QPointer<QLabel> m_addressLabel;
};
