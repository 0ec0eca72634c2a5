#include "Controller/Preferences/QVWebDAVLocationEditor.h"

#include "Host/QVApplication.h"
#include "Host/SyncStrings.h"
#include "Host/UnencryptedPasswords.h"
#include "Other Sources/QVURLCredentialUtilities.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Security/UrlCredentialStorage.h"

QVWebDAVLocationEditor::QVWebDAVLocationEditor(const std::shared_ptr<QVSyncLocation> &location)
    : QVSyncLocationEditor(QStringLiteral("QVWebDAVLocationEditor"), location) {
    if (!location->URL().isNil()) {
        readCredential();
    }
}

void QVWebDAVLocationEditor::readCredential() {
    m_credentialState = CredentialState::Reading;
    UrlCredentialStorage::shared().findCredentialForURL(
        location()->URL(), [editor = QPointer(this)](const auto &credential) {
            if (editor) {
                editor->didReadCredential(credential);
            }
        });
}

void QVWebDAVLocationEditor::didReadCredential(
    const Expected<std::optional<UrlCredential>> &credential) {
    m_credentialState = credential ? CredentialState::Known : CredentialState::Unreadable;
    if (credential) {
        setCredential(*credential);
    } else {
        m_readingError = credential.error();
    }
    if (isWindowLoaded()) {
        showCredential();
    }
}

void QVWebDAVLocationEditor::showCredential() {
    const bool isReading = m_credentialState == CredentialState::Reading;
    m_userField->setEnabled(!isReading);
    m_passwordField->setEnabled(!isReading);
    m_passwordField->setPlaceholderText(isReading ? localizedSyncString("Reading the password…")
                                                  : QString());
    const UrlCredential shown = m_credential.value_or(UrlCredential());
    m_userField->setText(m_credentialState == CredentialState::Known ? shown.user
                                                                     : location()->URL().user());
    QString password = shown.password.toText();
    m_passwordField->setText(password);
    SecretBytes::wipe(password);
    if (m_credentialState == CredentialState::Unreadable) {
        m_explanationLabel->setText(
            localizedSyncString("%1 %2 To replace the password, enter it again.")
                .arg(m_readingError.localizedDescription, m_readingError.localizedFailureReason));
    }
}

std::shared_ptr<QVWebDAVLocationEditor> QVWebDAVLocationEditor::editorWithSyncLocation(
    const std::shared_ptr<QVSyncLocation> &location) {
    return std::shared_ptr<QVWebDAVLocationEditor>(new QVWebDAVLocationEditor(location));
}

quint16 QVWebDAVLocationEditor::defaultPortForHTTPS(bool isHTTPS) {
    return WebDAVAddress::defaultPort(isHTTPS);
}

QString QVWebDAVLocationEditor::sanitizeHost(const QString &host) {
    return WebDAVAddress::sanitizedHost(host);
}

Url QVWebDAVLocationEditor::URLWithFields(const Fields &fields) {
    return WebDAVAddress::URL(fields);
}

QVWebDAVLocationEditor::Fields QVWebDAVLocationEditor::fieldsOfURL(const Url &URL) {
    return WebDAVAddress::fields(URL);
}

void QVWebDAVLocationEditor::setCredential(const std::optional<UrlCredential> &credential) {
    m_credential = credential;
    KeyValue::announce<&QVWebDAVLocationEditor::credentialChanged>(this);
}

bool QVWebDAVLocationEditor::validateValueOfField(const QLineEdit *field) const {
    return !field->text().isEmpty();
}

bool QVWebDAVLocationEditor::isValid() const {
    return validateValueOfField(m_serverField) && validateValueOfField(m_storeField);
}

void QVWebDAVLocationEditor::toggleHTTPS(QObject *checkBox) {
    const auto *box = qobject_cast<QCheckBox *>(checkBox);
    requireParameter(box != nullptr, "checkBox != nil", "QVWebDAVLocationEditor::toggleHTTPS",
                     "Controller/Preferences/QVWebDAVLocationEditor");
    const bool isHTTPS = box->isChecked();
    m_portField->setPlaceholderText(QString::number(defaultPortForHTTPS(isHTTPS)));
    m_unencryptedLabel->setVisible(!isHTTPS);
    validate(checkBox);
}

void QVWebDAVLocationEditor::validate(QObject * /*sender*/) {
    m_acceptButton->setEnabled(isValid());
    Q_EMIT addressChanged();
}

QVWebDAVLocationEditor::Fields QVWebDAVLocationEditor::trimmedFields() const {
    Fields entered = fields();
    for (QString *text : {&entered.server, &entered.port, &entered.path, &entered.store}) {
        *text = text->trimmed();
    }
    return entered;
}

QString QVWebDAVLocationEditor::addressStatus() const {
    return WebDAVAddress::status(trimmedFields());
}

bool QVWebDAVLocationEditor::isAddressValid() const {
    return WebDAVAddress::problem(trimmedFields()).isEmpty();
}

bool QVWebDAVLocationEditor::isCompleteAddress() const {
    return WebDAVAddress::complete(m_serverField->text()).has_value();
}

void QVWebDAVLocationEditor::distributeAddress() {
    auto address = WebDAVAddress::complete(m_serverField->text());
    if (!address) {
        return;
    }
    const Fields &parts = address->fields;
    m_HTTPSCheckbox->setChecked(parts.isHTTPS);
    m_serverField->setText(parts.server);
    m_portField->setText(parts.port);
    m_pathField->setText(parts.path);
    // What the address does not contain stays as it was entered.
    if (!parts.store.isEmpty()) {
        m_storeField->setText(parts.store);
    }
    if (!parts.user.isEmpty()) {
        m_userField->setText(parts.user);
    }
    if (!address->password.isEmpty()) {
        m_passwordField->setText(address->password);
        m_passwordField->setModified(true);
        SecretBytes::wipe(address->password);
    }
    toggleHTTPS(m_HTTPSCheckbox);
}

void QVWebDAVLocationEditor::controlTextDidChange() {
    validate(nullptr);
}

void QVWebDAVLocationEditor::awakeFromNib() {
    const Fields shown = fieldsOfURL(location()->URL());
    // So that the fields stay in their places while these labels change.
    QSizePolicy policy = m_unencryptedLabel->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_unencryptedLabel->setSizePolicy(policy);
    m_addressLabel->setMinimumHeight(2 * m_addressLabel->fontMetrics().lineSpacing());
    m_HTTPSCheckbox->setChecked(shown.isHTTPS);
    toggleHTTPS(m_HTTPSCheckbox);
    m_serverField->setText(shown.server);
    showCredential();
    m_portField->setText(shown.port);
    m_pathField->setText(shown.path);
    m_storeField->setText(shown.store);
    // For locations in the list as well: the user can always discard the input.
    setShouldShowCancelButton(true);
    validate(nullptr);
}

QVWebDAVLocationEditor::Fields QVWebDAVLocationEditor::fields() const {
    return {.isHTTPS = m_HTTPSCheckbox->isChecked(),
            .server = m_serverField->text(),
            .user = m_userField->text(),
            .path = m_pathField->text(),
            .store = m_storeField->text(),
            .port = m_portField->text()};
}

bool QVWebDAVLocationEditor::mayStoreCredential() const {
    return m_credentialState == CredentialState::Known ||
           (m_credentialState == CredentialState::Unreadable && m_passwordField->isModified());
}

void QVWebDAVLocationEditor::acceptModalSheet(QObject *sender) {
    location()->setURL(URLWithFields(fields()));
    if (mayStoreCredential()) {
        storeCredential();
    }
    if (!m_HTTPSCheckbox->isChecked()) {
        if (const auto accepted = UnencryptedPasswords::accept(location()->URL()); !accepted) {
            NSApp()->presentError(accepted.error());
        }
    }
    QVSyncLocationEditor::acceptModalSheet(sender);
}

void QVWebDAVLocationEditor::storeCredential() {
    const UrlCredential entered{.user = m_userField->text(),
                                .password = m_passwordField->text(),
                                .persistence = UrlCredential::Persistence::Permanent};
    setCredential(entered);
    UrlCredentialStorage &storage = UrlCredentialStorage::shared();
    const Url URL = location()->URL();
    storage.setCredentialForProtectionSpace(entered, QVHTTPBasicURLProtectionSpaceForURL(URL));
    storage.setCredentialForProtectionSpace(entered, QVHTTPDigestURLProtectionSpaceForURL(URL));
}
