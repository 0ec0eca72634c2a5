#include "Engine/Stores/Dropbox/DropboxTokens.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

#include "Engine/Foundation/FoundSecret.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Platform/Security/Keychain.h"

namespace {

const QString TokensService = QStringLiteral("Velmora Dropbox");
const QString AccessKey = QStringLiteral("access");
const QString RefreshKey = QStringLiteral("refresh");
const QString ExpiryKey = QStringLiteral("expiry");

// Of a response.
const QString AccessTokenKey = QStringLiteral("access_token");
const QString RefreshTokenKey = QStringLiteral("refresh_token");
const QString TokenTypeKey = QStringLiteral("token_type");

/// Maximum time between sending a request and its arrival.
constexpr qint64 SecondsOnTheWay = 60;
constexpr double LongestLife = 10.0 * 365 * 24 * 3600;

/// Returns whether `text` can be sent in a header (RFC 6750, section 2.1).
bool isToken(QByteArrayView text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character > ' ' && character < '\x7f'; });
}

/// Returns what store() has stored; empty if it is not valid.
std::optional<DropboxTokens> parsed(const std::optional<SecretBytes> &secret) {
    if (!secret) {
        return std::nullopt;
    }
    QByteArray text = secret->toByteArray();
    const QJsonObject object = QJsonDocument::fromJson(text).object();
    SecretBytes::wipe(text);
    DropboxTokens tokens{.access = object.value(AccessKey).toString(),
                         .refresh = object.value(RefreshKey).toString()};
    if (object.contains(ExpiryKey)) {
        tokens.expiry = QDateTime::fromSecsSinceEpoch(object.value(ExpiryKey).toInteger()).toUTC();
    }
    const bool isSound =
        !tokens.access.isEmpty() && isToken(tokens.access.view()) && isToken(tokens.refresh.view());
    return isSound ? std::optional(tokens) : std::nullopt;
}

}  // namespace

Expected<DropboxTokens> DropboxTokens::fromResponse(const QByteArray &response,
                                                    const QUrl &server) {
    const QJsonObject object = QJsonDocument::fromJson(response).object();
    DropboxTokens tokens{.access = object.value(AccessTokenKey).toString(),
                         .refresh = object.value(RefreshTokenKey).toString()};
    const QString type = object.value(TokenTypeKey).toString();
    const double seconds = object.value(QStringLiteral("expires_in")).toDouble();
    if (tokens.access.isEmpty() || !isToken(tokens.access.view())) {
        return failure(DropboxError::invalidValue(AccessTokenKey, server));
    }
    if (!isToken(tokens.refresh.view())) {
        return failure(DropboxError::invalidValue(RefreshTokenKey, server));
    }
    if (type.compare(QStringLiteral("bearer"), Qt::CaseInsensitive) != 0) {
        return failure(DropboxError::invalidValue(TokenTypeKey, server));
    }
    if (seconds > 0) {
        tokens.expiry = QDateTime::currentDateTimeUtc().addSecs(
            static_cast<qint64>(std::min(seconds, LongestLife)));
    }
    return tokens;
}

Expected<std::optional<DropboxTokens>> DropboxTokens::stored(const QString &account,
                                                             const std::stop_token &cancellation) {
    return foundSecret(Keychain::shared().password(TokensService, account, cancellation))
        .map(&parsed);
}

void DropboxTokens::store(const QString &account) const {
    QJsonObject object{{AccessKey, access.toText()}, {RefreshKey, refresh.toText()}};
    if (expiry.isValid()) {
        object.insert(ExpiryKey, expiry.toSecsSinceEpoch());
    }
    QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
    Keychain::shared().setPassword(TokensService, account, text);
    SecretBytes::wipe(text);
}

void DropboxTokens::forget(const QString &account,
                           const std::function<void(const Expected<void> &)> &handler) {
    Keychain::shared().removeFirstLater(
        TokensService.toUtf8(), account.toUtf8(),
        [handler](const Expected<bool> &isRemoved) { handler(isRemoved.map([](bool) {})); });
}

SecretBytes DropboxTokens::authorization() const {
    QByteArray value = QByteArray("Bearer ").append(access.view());
    SecretBytes result(value);
    SecretBytes::wipe(value);
    return result;
}

bool DropboxTokens::areExpired() const {
    return expiry.isValid() && expiry <= QDateTime::currentDateTimeUtc().addSecs(SecondsOnTheWay);
}
