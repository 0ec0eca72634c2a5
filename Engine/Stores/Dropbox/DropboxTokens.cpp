#include "Engine/Stores/Dropbox/DropboxTokens.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <algorithm>

#include "Platform/Security/Keychain.h"

namespace {

const QString TokensService = QStringLiteral("Velmora Dropbox");
const QString AccessKey = QStringLiteral("access");
const QString RefreshKey = QStringLiteral("refresh");
const QString ExpiryKey = QStringLiteral("expiry");

/// Maximum time between sending a request and its arrival.
constexpr qint64 SecondsOnTheWay = 60;
constexpr double LongestLife = 10.0 * 365 * 24 * 3600;

/// Returns whether `text` can be sent in a header (RFC 6750, section 2.1).
bool isToken(const QByteArray &text) {
    return std::all_of(text.begin(), text.end(),
                       [](char character) { return character > ' ' && character < '\x7f'; });
}

}  // namespace

std::optional<DropboxTokens> DropboxTokens::fromAnswer(const QByteArray &answer) {
    const QJsonObject object = QJsonDocument::fromJson(answer).object();
    DropboxTokens tokens{
        .access = object.value(QStringLiteral("access_token")).toString().toUtf8(),
        .refresh = object.value(QStringLiteral("refresh_token")).toString().toUtf8()};
    const QString type = object.value(QStringLiteral("token_type")).toString();
    const double seconds = object.value(QStringLiteral("expires_in")).toDouble();
    if (tokens.access.isEmpty() || !isToken(tokens.access) || !isToken(tokens.refresh) ||
        type.compare(QStringLiteral("bearer"), Qt::CaseInsensitive) != 0) {
        return std::nullopt;
    }
    if (seconds > 0) {
        tokens.expiry = QDateTime::currentDateTimeUtc().addSecs(
            static_cast<qint64>(std::min(seconds, LongestLife)));
    }
    return tokens;
}

std::optional<DropboxTokens> DropboxTokens::stored(const QString &account) {
    const std::optional<QByteArray> secret = Keychain::shared().password(TokensService, account);
    const QJsonObject object = QJsonDocument::fromJson(secret.value_or(QByteArray())).object();
    DropboxTokens tokens{.access = object.value(AccessKey).toString().toUtf8(),
                         .refresh = object.value(RefreshKey).toString().toUtf8()};
    if (object.contains(ExpiryKey)) {
        tokens.expiry = QDateTime::fromSecsSinceEpoch(object.value(ExpiryKey).toInteger()).toUTC();
    }
    const bool isSound =
        !tokens.access.isEmpty() && isToken(tokens.access) && isToken(tokens.refresh);
    return isSound ? std::optional(tokens) : std::nullopt;
}

void DropboxTokens::store(const QString &account) const {
    QJsonObject object{{AccessKey, QString::fromUtf8(access)},
                       {RefreshKey, QString::fromUtf8(refresh)}};
    if (expiry.isValid()) {
        object.insert(ExpiryKey, expiry.toSecsSinceEpoch());
    }
    Keychain::shared().setPassword(TokensService, account,
                                   QJsonDocument(object).toJson(QJsonDocument::Compact));
}

bool DropboxTokens::areExpired() const {
    return expiry.isValid() && expiry <= QDateTime::currentDateTimeUtc().addSecs(SecondsOnTheWay);
}
