#include "Engine/Stores/Dropbox/DropboxAuthorization.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRandomGenerator>
#include <array>
#include <future>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxRedirectListener.h"
#include "Engine/Stores/Dropbox/DropboxTokenEndpoint.h"
#include "Engine/Stores/Http/FormEncoding.h"
#include "Platform/Foundation/Localization.h"
#include "Platform/Interface/Workspace.h"

namespace {

constexpr std::chrono::milliseconds BrowserLookInterval(20);
constexpr auto Base64Url = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

/// 43 characters from 256 random bits, as RFC 7636, 4.1 recommends it.
QString randomText() {
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    const auto *bytes = reinterpret_cast<const char *>(words.data());
    return QString::fromLatin1(QByteArray(bytes, sizeof words).toBase64(Base64Url));
}

QString challengeFor(const QString &verifier) {
    return QString::fromLatin1(
        QCryptographicHash::hash(verifier.toLatin1(), QCryptographicHash::Sha256)
            .toBase64(Base64Url));
}

QUrl withQuery(QUrl address, const QList<FormEncoding::Field> &fields) {
    address.setQuery(QString::fromLatin1(FormEncoding::encode(fields)), QUrl::StrictMode);
    return address;
}

}  // namespace

DropboxAuthorization::DropboxAuthorization(QObject &mainThread, const Limits &limits)
    : m_mainThread(mainThread), m_limits(limits), m_connection(limits.server) {}

Result<QString> DropboxAuthorization::run(const EngineFuture &future) {
    if (future.isCancelled()) {
        return operationCancelled();
    }
    const Result<DropboxConfiguration> configuration = DropboxConfiguration::current();
    if (const Error *error = errorOf(configuration)) {
        return *error;
    }
    const Result<DropboxTokens> granted =
        tokens(std::get<DropboxConfiguration>(configuration), future);
    if (const Error *error = errorOf(granted)) {
        return *error;
    }
    const auto &grantedTokens = std::get<DropboxTokens>(granted);
    Result<QString> address =
        accountAddress(std::get<DropboxConfiguration>(configuration), grantedTokens, future);
    if (future.isCancelled()) {
        return operationCancelled();
    }
    if (const auto *account = std::get_if<QString>(&address)) {
        grantedTokens.store(*account);
    }
    return address;
}

Result<DropboxTokens> DropboxAuthorization::tokens(const DropboxConfiguration &configuration,
                                                   const EngineFuture &future) {
    const QString state = randomText();
    const QString verifier = randomText();
    DropboxRedirectListener listener(state);
    if (const std::optional<Error> error = listener.listen(configuration.redirectPort)) {
        return *error;
    }
    const QUrl signInPage =
        withQuery(configuration.authorizeAddress,
                  {{"response_type", QStringLiteral("code")},
                   {"client_id", configuration.applicationKey},
                   {"redirect_uri", listener.address()},
                   {"state", state},
                   {"code_challenge", challengeFor(verifier)},
                   {"code_challenge_method", QStringLiteral("S256")},
                   // Only then there is a refresh token.
                   {"token_access_type", QStringLiteral("offline")},
                   {"scope", QStringLiteral("account_info.read files.metadata.read "
                                            "files.content.read files.content.write")}});
    if (const std::optional<Error> error = openBrowser(signInPage, future)) {
        return *error;
    }
    const Result<QString> code = listener.wait(future, m_limits.person);
    if (const Error *error = errorOf(code)) {
        return *error;
    }
    return DropboxTokenEndpoint(configuration, m_connection)
        .exchange(std::get<QString>(code), verifier, listener.address(), future);
}

std::optional<Error> DropboxAuthorization::openBrowser(const QUrl &address,
                                                       const EngineFuture &future) {
    const auto opened = std::make_shared<std::promise<bool>>();
    std::future<bool> isOpened = opened->get_future();
    QMetaObject::invokeMethod(
        &m_mainThread, [opened, address] { opened->set_value(Workspace::openURL(address)); },
        Qt::QueuedConnection);
    while (isOpened.wait_for(BrowserLookInterval) != std::future_status::ready) {
        if (future.isCancelled()) {
            return operationCancelled();
        }
    }
    if (isOpened.get()) {
        return {};
    }
    return engineError(EngineErrorCode::StoreUnreachable,
                       localizedSyncString("No browser can be opened to sign in to Dropbox."));
}

Result<QString> DropboxAuthorization::accountAddress(const DropboxConfiguration &configuration,
                                                     const DropboxTokens &tokens,
                                                     const EngineFuture &future) {
    constexpr int OK = 200;
    QUrl route = configuration.APIAddress;
    route.setPath(route.path() + QStringLiteral("/users/get_current_account"));
    const Result<HttpClient::Response> answer =
        m_connection.send({.method = "POST",
                           .URL = route,
                           .headers = {{"Authorization", "Bearer " + tokens.access},
                                       {"Content-Type", "application/json"}},
                           .body = "null"},
                          future);
    if (const Error *error = errorOf(answer)) {
        return *error;
    }
    const auto &response = std::get<HttpClient::Response>(answer);
    if (response.status != OK) {
        return DropboxError::unexpected(response, route);
    }
    const QString email =
        QJsonDocument::fromJson(response.body).object().value(QStringLiteral("email")).toString();
    return email.contains(u'@') ? Result<QString>(email) : DropboxError::notUnderstood(route);
}
