#include "Controller/Preferences/QVWebDAVLocationEditor.h"

#include <cstdlib>

#include "Controller/Preferences/WebDAVAddress.h"
#include "Host/LocationSchemes.h"
#include "Host/QVApplication.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
#include "Host/UnencryptedPasswords.h"
#include "Other Sources/QVURLCredentialUtilities.h"
#include "Platform/Foundation/PathComponents.h"
#include "Platform/Foundation/PercentEscapes.h"
#include "Platform/Security/UrlCredentialStorage.h"

namespace {

/// Both ' and ’ are included on purpose.
const QString EscapedInUser = QLatin1StringView(PercentEscapes::GeneralDelimiters) +
                              QLatin1StringView(PercentEscapes::SubDelimiters) + QChar(u'\u2019');

/// Returns the integer at the start of `text`, or 0 if there is none.
qint64 integerValue(const QString &text) {
    return std::strtoll(text.toUtf8().constData(), nullptr, 10);
}

quint16 portWithFields(const QVWebDAVLocationEditor::Fields &fields) {
    const qint64 port = integerValue(fields.port);
    return port == 0 ? QVWebDAVLocationEditor::defaultPortForHTTPS(fields.isHTTPS)
                     : static_cast<quint16>(port);
}

}  // namespace

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
    return isHTTPS ? 443 : 80;
}

QString QVWebDAVLocationEditor::sanitizeHost(const QString &host) {
    QStringView rest = host;
    for (const QString &scheme : {LocationSchemes::Http, LocationSchemes::Https}) {
        const QString prefix = scheme + u':';
        if (host.startsWith(prefix)) {
            rest = rest.sliced(prefix.size());
        }
    }
    const auto isTrimmed = [](QChar c) { return c == u'/' || c == u':' || c == u'@'; };
    while (!rest.isEmpty() && isTrimmed(rest.front())) {
        rest = rest.sliced(1);
    }
    while (!rest.isEmpty() && isTrimmed(rest.back())) {
        rest.chop(1);
    }
    return rest.toString();
}

Url QVWebDAVLocationEditor::URLWithFields(const Fields &fields) {
    const QString scheme = fields.isHTTPS ? LocationSchemes::Https : LocationSchemes::Http;
    const quint16 port = portWithFields(fields);
    // First, because sanitizing takes the colons at the ends of an address.
    QString hostPart = sanitizeHost(Url::hostInURL(fields.server));
    if (port != 0 && port != defaultPortForHTTPS(fields.isHTTPS)) {
        hostPart += QStringLiteral(":%1").arg(port);
    }
    const QString path = PercentEscapes::adding(fields.path);
    const QString store = PercentEscapes::adding(
        PathComponents::appendingExtension(fields.store, SyncStoreLayout::Extension));
    const QString fullPath = PathComponents::standardizingRelative(
        PathComponents::appending(PathComponents::appending(hostPart, path), store));
    const QString user = PercentEscapes::adding(fields.user, EscapedInUser);
    return Url::fromString(scheme + QLatin1StringView("://") + user + u'@' + fullPath);
}

QVWebDAVLocationEditor::Fields QVWebDAVLocationEditor::fieldsOfURL(const Url &URL) {
    Fields fields;
    fields.isHTTPS = URL.scheme() == LocationSchemes::Https;
    fields.server = URL.host();
    const quint16 port = URL.port().value_or(0);
    if (port != 0 && port != defaultPortForHTTPS(fields.isHTTPS)) {
        fields.port = QString::number(port);
    }
    fields.path = PathComponents::withoutLast(URL.path());
    if (fields.path.startsWith(u'/')) {
        fields.path.remove(0, 1);
    }
    fields.store = PathComponents::withoutExtension(PathComponents::last(URL.path()));
    return fields;
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
    const bool isHTTPS = qobject_cast<QCheckBox *>(checkBox)->isChecked();
    m_portField->setPlaceholderText(QString::number(defaultPortForHTTPS(isHTTPS)));
    m_unencryptedLabel->setVisible(!isHTTPS);
    validate(checkBox);
}

void QVWebDAVLocationEditor::validate(QObject * /*sender*/) {
    m_acceptButton->setEnabled(isValid());
    Q_EMIT addressChanged();
}

QString QVWebDAVLocationEditor::addressStatus() const {
    Fields entered = fields();
    // As they are when the user leaves the fields.
    for (QString *text : {&entered.server, &entered.port, &entered.path, &entered.store}) {
        *text = text->trimmed();
    }
    return WebDAVAddress::status(entered);
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
