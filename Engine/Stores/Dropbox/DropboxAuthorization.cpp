#include "Engine/Stores/Dropbox/DropboxAuthorization.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRandomGenerator>
#include <QtGui/QDesktopServices>
#include <array>
#include <condition_variable>
#include <mutex>

#include "Engine/Foundation/CancellableWait.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxRedirectListener.h"
#include "Engine/Stores/Dropbox/DropboxTokenEndpoint.h"
#include "Engine/Stores/Http/FormEncoding.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/MainQueue.h"

namespace {

constexpr auto Base64Url = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;

/// The result of opening the browser. The main thread does not open it if the waiting thread has
/// given up before, and released this object.
class BrowserStart {
public:
    void setOpened(bool isOpened) {
        const std::lock_guard lock(m_mutex);
        m_isOpened = isOpened;
        m_changed.notify_one();
    }
    /// Waits for setOpened(); returns an empty optional if `future` is cancelled before.
    std::optional<bool> wait(const EngineFuture &future) {
        std::unique_lock lock(m_mutex);
        CancellableWait(future, QDeadlineTimer::Forever).until(m_changed, lock, [this] {
            return m_isOpened.has_value();
        });
        return m_isOpened;
    }

private:
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::optional<bool> m_isOpened;
};

/// Returns 43 characters from 256 random bits, as RFC 7636, section 4.1 recommends.
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

DropboxAuthorization::DropboxAuthorization(const Limits &limits)
    : m_limits(limits), m_connection(limits.server) {}

Expected<DropboxAuthorization::SignIn> DropboxAuthorization::run(const EngineFuture &future) {
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    const Expected<DropboxConfiguration> configuration = DropboxConfiguration::current();
    if (!configuration) {
        return failure(configuration.error());
    }
    const Expected<DropboxTokens> granted = tokens(*configuration, future);
    if (!granted) {
        return failure(granted.error());
    }
    return accountAddress(*configuration, *granted, future).map([&](const QString &address) {
        return SignIn{.address = address, .tokens = *granted};
    });
}

Expected<DropboxTokens> DropboxAuthorization::tokens(const DropboxConfiguration &configuration,
                                                     const EngineFuture &future) {
    const QString state = randomText();
    const QString verifier = randomText();
    DropboxRedirectListener listener(state);
    if (const Expected<void> listening = listener.listen(configuration.redirectPort); !listening) {
        return failure(listening.error());
    }
    const QUrl signInPage =
        withQuery(configuration.authorizeAddress,
                  {{"response_type", QStringLiteral("code")},
                   {"client_id", configuration.applicationKey},
                   {"redirect_uri", listener.address()},
                   {"state", state},
                   {"code_challenge", challengeFor(verifier)},
                   {"code_challenge_method", QStringLiteral("S256")},
                   // Required to receive a refresh token.
                   {"token_access_type", QStringLiteral("offline")},
                   {"scope", QStringLiteral("account_info.read files.metadata.read "
                                            "files.content.read files.content.write")}});
    if (const Expected<void> opened = openBrowser(signInPage, future); !opened) {
        return failure(opened.error());
    }
    const Expected<QString> code = listener.wait(future, m_limits.user);
    if (!code) {
        return failure(code.error());
    }
    return DropboxTokenEndpoint(configuration, m_connection)
        .exchange(*code, verifier, listener.address(), future);
}

Expected<void> DropboxAuthorization::openBrowser(const QUrl &address, const EngineFuture &future) {
    const auto start = std::make_shared<BrowserStart>();
    MainQueue::dispatchAsync([waiting = std::weak_ptr(start), address] {
        if (const auto living = waiting.lock()) {
            living->setOpened(QDesktopServices::openUrl(address));
        }
    });
    const std::optional<bool> isOpened = start->wait(future);
    if (!isOpened) {
        return failure(operationCancelled());
    }
    if (*isOpened) {
        return {};
    }
    return failure(
        engineError(EngineErrorCode::StoreUnreachable,
                    localizedSyncString("No web browser could be opened to sign in to Dropbox. Set "
                                        "a default web browser and try again.")));
}

Expected<QString> DropboxAuthorization::accountAddress(const DropboxConfiguration &configuration,
                                                       const DropboxTokens &tokens,
                                                       const EngineFuture &future) {
    QUrl route = configuration.APIAddress;
    route.setPath(route.path() + QStringLiteral("/users/get_current_account"));
    const Expected<HttpClient::Response> response =
        m_connection.send({.method = "POST",
                           .URL = route,
                           .headers = {{"Content-Type", "application/json"}},
                           .authorization = tokens.authorization(),
                           .body = "null"},
                          future);
    if (!response) {
        return failure(response.error());
    }
    if (response->status != HttpStatus::OK) {
        return failure(DropboxError::unexpected(*response, route));
    }
    const QString emailKey = QStringLiteral("email");
    const QString email =
        QJsonDocument::fromJson(response->body).object().value(emailKey).toString();
    return email.contains(u'@') ? Expected<QString>(email)
                                : failure(DropboxError::invalidValue(emailKey, route));
}
